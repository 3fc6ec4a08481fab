#include "platform/ConsoleProgram.h"

#include "platform/windows/Paths.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>

namespace qv {
namespace {

constexpr int kStandardStreams = 3;
constexpr int kOutput = 1;
constexpr int kError = 2;

HANDLE StreamHandle(int stream) { return reinterpret_cast<HANDLE>(_get_osfhandle(stream)); }

// False where the stream is no console.
bool ConsoleMode(int stream, DWORD& mode) { return GetConsoleMode(StreamHandle(stream), &mode) != FALSE; }

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
  const std::wstring wide = Widen(utf8, kUtf8CodePage);
  const std::string path = NarrowPath(wide);
  if (!path.empty()) return path;
  const std::string folder = NarrowPath(FolderOf(wide));  // of a file that is yet to be made
  return (folder.empty() ? Narrow(FolderOf(wide)) : folder) + Narrow(FileNameOf(wide));
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

ConsoleScope::ConsoleScope() : previousCodePage_(GetConsoleOutputCP()) {
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
}

}  // namespace qv
