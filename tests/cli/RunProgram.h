#pragma once

#include "cli/Program.h"
#include "support/CaseFile.h"

#include <iterator>
#include <map>
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

/// A command that rewrites one of the files, and what there is before.
struct RewritingCommand {
  std::string name;
  std::vector<std::string> arguments;
  std::string target;
  std::map<std::string, std::string> files = {{"f.xml", kOneFormat},
                                              {"in.txt", "name,qty\nA1,5\n,2\n\nA2,x\n"},
                                              {"r.json", "[{\"PartName\":\"A1\"}]"},
                                              {"out.txt", "old\n"}};
};

inline std::vector<RewritingCommand> RewritingCommands() {
  std::vector<RewritingCommand> commands;
  for (const auto& row : ReadTable("cli/tables/rewriting.table")) {
    std::istringstream words(row[1]);
    commands.push_back({row[0], {std::istream_iterator<std::string>(words), {}}, row[2]});
  }
  return commands;
}

}  // namespace qv
