#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/windows/WideText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

namespace {

// The tests' Windows is a western one.
TEST(CodePageWindowsTest, ConvertsBetweenTheCodePageAndUtf8) {
  ASSERT_EQ(GetACP(), 1252U);
  const struct {
    const char* why;
    std::string utf8;
    std::string text;
    std::string back;
  } cases[] = {
      {"nothing", "", "", ""},
      {"letters and the euro sign", "Größe 5 €",
       "Gr\xF6\xDF"
       "e 5 \x80",
       "Größe 5 €"},
      {"one mark for each character that is lost", "a板\xF0\x9F\x98\x80z", "a??z", "a??z"},
      {"no look-alikes", "Łódź ∞ ﬁ",
       "?\xF3"
       "d? ? ?",
       "?ód? ? ?"},
      {"NUL is a character", std::string("a\0b", 3), std::string("a\0b", 3), std::string("a\0b", 3)},
      {"a byte that is no UTF-8", "a\xFFz", "a?z", "a?z"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    EXPECT_EQ(qv::FromUtf8(test.utf8), test.text);
    EXPECT_EQ(qv::ToUtf8(test.text), test.back);
  }
}

TEST(CodePageWindowsTest, ReplacesEachByteThatDoesNotDecode) {
  const struct {
    const char* why;
    std::string bytes;
    unsigned codePage;
    std::wstring wide;
  } cases[] = {
      {"a lead byte at the end", "a\x94", 932, L"a\xFFFD"},
      {"a lead byte before what cannot follow", "\x94\x20z", 932, L"\xFFFD z"},
      {"two bytes, one, two", "\x94\xC2-\x8C\xFA", 932, L"板-厚"},
      {"half-width letters are one byte", "\xB1\xB2", 932, L"ｱｲ"},
      {"a cut sequence is one stretch", "\xE2\x82z", qv::kUtf8CodePage, L"\xFFFDz"},
      {"four bytes", "\xF0\x9F\x98\x80", qv::kUtf8CodePage, L"\xD83D\xDE00"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    EXPECT_EQ(qv::Widen(test.bytes, test.codePage), test.wide);
  }
}

TEST(CodePageWindowsTest, GivesEveryPathANarrowForm) {
  const TemporaryFolder folder;
  const auto inFolder = [&](const char* utf8) { return (folder / "") + utf8; };
  EXPECT_EQ(qv::PathFromUtf8(inFolder("Größe.csv")), (folder / "") +
                                                         "Gr\xF6\xDF"
                                                         "e.csv");
  EXPECT_EQ(qv::PathFromUtf8(inFolder("板厚.csv")), (folder / "") + "??.csv") << "nothing is there";

  const std::filesystem::path wide = std::filesystem::path(folder / "") / L"板";
  std::filesystem::create_directory(wide);
  const std::string shortFolder = qv::PathFromUtf8(inFolder("板"));
  EXPECT_EQ(shortFolder.find('?'), std::string::npos);
  EXPECT_TRUE(std::filesystem::equivalent(shortFolder, wide));
  EXPECT_EQ(qv::PathFromUtf8(inFolder("板\\parts.csv")), shortFolder + "\\parts.csv") << "yet to be made";
}

}  // namespace
