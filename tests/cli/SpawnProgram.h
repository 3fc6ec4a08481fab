#pragma once

#include <map>
#include <string>
#include <vector>

/// What a program is started with. All texts are UTF-8.
struct ProgramCall {
  std::string program;
  std::vector<std::string> arguments;
  std::string folder;                              ///< to run in
  std::string input;                               ///< on standard input
  std::map<std::string, std::string> environment;  ///< set for it; an empty value takes a variable away
};

struct ProgramResult {
  int exitCode = -1;
  std::string output;
  std::string errors;
};

/// The arguments of a line: blanks stand between them, single quotes keep them together.
inline std::vector<std::string> SplitArguments(const std::string& line) {
  std::vector<std::string> arguments;
  bool isOpen = false;
  bool isQuoted = false;
  for (const char c : line) {
    if (c == '\'') {
      isQuoted = !isQuoted;
    } else if (c == ' ' && !isQuoted) {
      isOpen = false;
      continue;
    }
    if (!isOpen) arguments.emplace_back();
    isOpen = true;
    if (c != '\'') arguments.back() += c;
  }
  return arguments;
}

/// Runs the program to its end. Throws std::runtime_error when it cannot be started.
ProgramResult SpawnProgram(const ProgramCall& call);
