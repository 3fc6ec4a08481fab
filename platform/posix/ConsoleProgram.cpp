#include "platform/ConsoleProgram.h"

#include "platform/CodePage.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace qv {

std::vector<std::string> ProgramArguments(int argc, char** argv) { return {argv, argv + argc}; }

std::string PathFromUtf8(std::string_view utf8) { return std::string(utf8); }

std::string PathToUtf8(std::string_view path) { return ToUtf8(path); }

bool IsTerminal(int stream) { return ::isatty(stream) == 1; }

int TerminalWidth() {
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    winsize size{};
    if (::ioctl(stream, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  }
  return 0;
}

ConsoleScope::ConsoleScope() = default;

// Terminals here take UTF-8 and colours anyway.
ConsoleScope::~ConsoleScope() = default;

}  // namespace qv
