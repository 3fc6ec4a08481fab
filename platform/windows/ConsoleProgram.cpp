#include "platform/ConsoleProgram.h"

#include "platform/CodePage.h"
#include "platform/windows/Paths.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <objbase.h>
#include <shellapi.h>

#include <cstdio>
#include <map>

namespace qv {
namespace {

constexpr int kStandardStreams = 3;
constexpr int kOutput = 1;
constexpr int kError = 2;

HANDLE StreamHandle(int stream) { return reinterpret_cast<HANDLE>(_get_osfhandle(stream)); }

// False where the stream is no console.
bool ConsoleMode(int stream, DWORD& mode) { return GetConsoleMode(StreamHandle(stream), &mode) != FALSE; }

// The paths that were given, by the narrow forms that stand in for them.
std::map<std::string, std::string, std::less<>>& GivenPaths() {
  static std::map<std::string, std::string, std::less<>> paths;
  return paths;
}

// The short name where the code page cannot hold the path.
std::string NarrowFormOf(const std::wstring& path) {
  const std::string whole = NarrowPath(path);
  if (!whole.empty()) return whole;
  const std::string folder = NarrowPath(FolderOf(path));  // of a file that is yet to be made
  return (folder.empty() ? Narrow(FolderOf(path)) : folder) + Narrow(FileNameOf(path));
}

// A console shows a character only when all of its bytes arrive together.
void Gather(std::FILE* stream, int number) {
  if (IsTerminal(number)) std::setvbuf(stream, nullptr, _IOFBF, BUFSIZ);
}

}  // namespace

// What main() is given has lost every character that the code page does not hold.
std::vector<std::string> ProgramArguments(int argc, char** argv) {
  int count = 0;
  LPWSTR* const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (wide == nullptr) return {argv, argv + argc};
  std::vector<std::string> arguments;
  for (int i = 0; i < count; ++i) arguments.push_back(Narrow(wide[i], kUtf8CodePage));
  LocalFree(wide);
  return arguments;
}

std::string PathFromUtf8(std::string_view utf8) {
  std::string path = NarrowFormOf(Widen(utf8, kUtf8CodePage));
  if (ToUtf8(path) != utf8) GivenPaths().insert_or_assign(path, std::string(utf8));
  return path;
}

std::string PathToUtf8(std::string_view path) {
  const auto given = GivenPaths().find(path);
  return given == GivenPaths().end() ? ToUtf8(path) : given->second;
}

bool IsTerminal(int stream) {
  DWORD mode = 0;
  return ConsoleMode(stream, mode);
}

int TerminalWidth() {
  for (const int stream : {kOutput, kError}) {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    if (GetConsoleScreenBufferInfo(StreamHandle(stream), &screen) != FALSE) {
      return screen.srWindow.Right - screen.srWindow.Left + 1;
    }
  }
  return 0;
}

// Writing a format file relies on the program's COM.
ConsoleScope::ConsoleScope()
    : previousCodePage_(GetConsoleOutputCP()), hasCom_(SUCCEEDED(CoInitialize(nullptr))) {
  for (int stream = 0; stream < kStandardStreams; ++stream) _setmode(stream, _O_BINARY);
  for (const int stream : {kOutput, kError}) {
    DWORD mode = 0;
    if (ConsoleMode(stream, mode) &&
        SetConsoleMode(StreamHandle(stream), mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) == FALSE) {
      obeysColour_ = false;
    }
  }
  Gather(stdout, kOutput);
  Gather(stderr, kError);
  if (previousCodePage_ != 0) SetConsoleOutputCP(kUtf8CodePage);
}

ConsoleScope::~ConsoleScope() {
  std::fflush(nullptr);
  if (previousCodePage_ != 0) SetConsoleOutputCP(previousCodePage_);
  if (hasCom_) CoUninitialize();
}

}  // namespace qv
