#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace qv {

/// Where the program reads and writes, in UTF-8, and what is at the other end.
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

/// Does what the command line (UTF-8, the program's own name first) asks for and returns the exit code.
int RunProgram(const std::vector<std::string>& arguments, const Streams& streams);

}  // namespace qv
