#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace qv {

/// Where the program reads and writes, in UTF-8, and what stands at the other end.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& error;
  bool outIsTerminal = false;
  bool errorIsTerminal = false;
  bool allowsColour = false;
  int width = 0;  ///< columns that a table may fill; 0: any number

  bool ColoursOut() const { return outIsTerminal && allowsColour; }
  bool ColoursError() const { return errorIsTerminal && allowsColour; }
};

/// The text in bold, where colours are wanted.
inline std::string Bold(std::string_view text, bool isColoured) {
  return isColoured ? "\x1b[1m" + std::string(text) + "\x1b[0m" : std::string(text);
}

}  // namespace qv
