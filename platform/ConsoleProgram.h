#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// The command line as UTF-8, the program's own name first. `argc` and `argv` are those of main().
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// A path given as UTF-8 in the narrow form that the library takes. Where the code page cannot hold it, the
/// short name of the existing file or folder stands in; without one, each character that is lost becomes "?",
/// which no file name may contain.
std::string PathFromUtf8(std::string_view utf8);

/// Whether standard input (0), output (1) or error (2) is a terminal.
bool IsTerminal(int stream);

/// The columns of the terminal that standard output or error goes to; 0 when neither does.
int TerminalWidth();

/// Lets the standard streams carry UTF-8 bytes exactly as they are written, and a terminal show them and obey
/// colour sequences, for as long as it lives. To be made first in main().
class ConsoleScope {
 public:
  ConsoleScope();
  ~ConsoleScope();
  ConsoleScope(const ConsoleScope&) = delete;
  ConsoleScope& operator=(const ConsoleScope&) = delete;

  /// False where a terminal shows colour sequences instead of obeying them.
  bool ObeysColour() const { return obeysColour_; }

 private:
  bool obeysColour_ = true;
  [[maybe_unused]] unsigned previousCodePage_ = 0;  // where the platform has one
};

}  // namespace qv
