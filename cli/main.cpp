#include "cli/Program.h"
#include "platform/ConsoleProgram.h"
#include "platform/Interruption.h"

#include <charconv>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string_view>

namespace {

std::string_view Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// COLUMNS tells the width that a person wants, also when the output goes on through a pipe.
int WantedWidth(bool outIsTerminal) {
  const std::string_view columns = Variable("COLUMNS");
  int wanted = 0;
  std::from_chars(columns.data(), columns.data() + columns.size(), wanted);
  if (wanted > 0) return wanted;
  return outIsTerminal ? qv::TerminalWidth() : 0;
}

}  // namespace

int main(int argc, char** argv) {
  const qv::ConsoleScope console;
  std::ios::sync_with_stdio(false);
  std::cin.tie(nullptr);
  qv::Streams streams{std::cin, std::cout, std::cerr};
  streams.outIsTerminal = qv::IsTerminal(1);
  streams.errorIsTerminal = qv::IsTerminal(2);
  streams.allowsColour =
      console.ObeysColour() && std::getenv("NO_COLOR") == nullptr && Variable("TERM") != "dumb";
  streams.width = WantedWidth(streams.outIsTerminal);
  qv::CatchInterruptions();
  int code = 3;
  try {
    code = qv::RunProgram(qv::ProgramArguments(argc, argv), streams);
  } catch (const std::exception& error) {
    std::cerr << "qvassembly: " << error.what() << '\n';
  }
  return qv::IsInterrupted() ? qv::EndInterrupted() : code;
}
