#include "support/TemporaryFolder.h"
#include "tests/windows/StartedProcess.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr short kWidth = 150;

/// A console of the test's own while this lives: its window, and what stands in it.
class OwnConsole {
 public:
  OwnConsole() {
    FreeConsole();
    if (AllocConsole() == FALSE) return;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    screen_ =
        qv::Handle(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                               &inherited, OPEN_EXISTING, 0, nullptr));
    SetConsoleScreenBufferSize(screen_.Get(), {kWidth, 50});
  }
  ~OwnConsole() { FreeConsole(); }
  OwnConsole(const OwnConsole&) = delete;
  OwnConsole& operator=(const OwnConsole&) = delete;

  HANDLE Screen() const { return screen_.Get(); }

  /// A line of the screen, from 0, without the blanks at its end.
  std::wstring Line(short line) const {
    wchar_t text[kWidth];
    DWORD count = 0;
    ReadConsoleOutputCharacterW(Screen(), text, kWidth, {0, line}, &count);
    std::wstring found(text, count);
    return found.erase(found.find_last_not_of(L' ') + 1);
  }

 private:
  qv::Handle screen_;
};

TEST(ConsoleTest, ShowsEveryCharacter) {
  const TemporaryFolder folder;
  folder.Write(
      "f.xml",
      "<CSVOptionSetting Current='f'><OptionForm Name='f' Line='1' Delimiters='Comma,' Qualifier='2'>"
      "<PartName Order='0'/><PartQuantity Order='1'/></OptionForm></CSVOptionSetting>");
  folder.Write("parts.csv",
               "name,qty\nGr\xf6\xdf"
               "e \x80,x\n");
  const OwnConsole console;
  ASSERT_NE(console.Screen(), nullptr);
  const UINT codePage = GetConsoleOutputCP();
  SetEnvironmentVariableW(L"NO_COLOR", L"1");  // this console takes colour sequences, and shows them
  const std::string line = std::string("\"" QV_PROGRAM "\" import --kind parts --as table --config ") +
                           (folder / "f.xml") + " " + (folder / "parts.csv");
  const StartedProcess program(std::wstring(line.begin(), line.end()), nullptr, console.Screen(),
                               console.Screen());
  EXPECT_EQ(program.End(), 0U);
  EXPECT_TRUE(
      console.Line(0).ends_with(L"parts.csv:2: PartQuantity: \"x\" is not a number; stored as \"0\""));
  EXPECT_EQ(console.Line(1), L"PartName  PartQuantity");
  EXPECT_EQ(console.Line(2), L"────────  ────────────");
  EXPECT_EQ(console.Line(3), L"Größe €              0");
  EXPECT_EQ(GetConsoleOutputCP(), codePage);  // as it was found
}

}  // namespace
