#pragma once

#include "cli/Program.h"

#include <sstream>
#include <string>
#include <vector>

namespace qv {

struct Outcome {
  int code;
  std::string out;
  std::string error;
};

/// Runs the program on streams of the test's own.
inline Outcome RunOn(const std::vector<std::string>& arguments, bool isTerminal = false,
                     bool allowsColour = true) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream error;
  const Streams streams{in, out, error, isTerminal, isTerminal, allowsColour, isTerminal ? 80 : 0};
  std::vector<std::string> all = {"qvassembly"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  const int code = RunProgram(all, streams);
  return {code, out.str(), error.str()};
}

/// A format file of one format of two columns.
constexpr const char* kOneFormat =
    "<CSVOptionSetting Current=\"f\"><OptionForm Name=\"f\" Line=\"1\" Delimiters=\"Comma,\" Qualifier=\"2\">"
    "<PartName Order=\"0\"/><PartQuantity Order=\"1\"/></OptionForm></CSVOptionSetting>";

}  // namespace qv
