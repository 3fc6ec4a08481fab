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

/// Runs the program to its end. Throws std::runtime_error when it cannot be started.
ProgramResult SpawnProgram(const ProgramCall& call);
