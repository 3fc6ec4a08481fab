#pragma once

#include <filesystem>
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

/// A narrow path for a person to read, in UTF-8: as PathFromUtf8() was given it where a short name stands in.
std::string PathToUtf8(std::string_view path);

/// The same path for the functions of std::filesystem, which take narrow text for another encoding than the
/// library does.
inline std::filesystem::path NativePath(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

/// The reverse of NativePath().
inline std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

/// Whether standard input (0), output (1) or error (2) is a terminal.
bool IsTerminal(int stream);

/// The columns of the terminal that standard output or error goes to; 0 when neither does.
int TerminalWidth();

/// Lets the standard streams carry UTF-8 bytes exactly as they are written, and a terminal show them and obey
/// colour sequences, for as long as it lives, and gives the thread COM on Windows. To be made first in
/// main().
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
  // Where the platform has such things.
  [[maybe_unused]] unsigned previousCodePage_ = 0;
  [[maybe_unused]] bool hasCom_ = false;
};

}  // namespace qv
