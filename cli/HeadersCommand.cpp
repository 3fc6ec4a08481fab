#include "cli/DataFile.h"
#include "cli/DisplayText.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace qv {
namespace {

constexpr const char* kHeadersFooter = R"(
Examples:
  qvassembly headers parts.csv
  qvassembly headers --format laser-list list.txt)";

int RunHeaders(Session& session, const FileOptions& options) {
  const FormatFile formats(options.config, {options.file}, session.remarks);
  const OptionForm& form = formats.FindFor(options.format, options.file, session);
  for (const std::string& header : ReadHeaders(session, formats, form, options.file))
    session.Write((session.streams.outIsTerminal ? Harmless(header) : header) + "\n");
  return kDone;
}

}  // namespace

void AddHeadersCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("headers", "Print the headers of a data file, one per line");
  const auto options = std::make_shared<FileOptions>();
  AddConfigOption(*command, options->config);
  AddFormatOption(*command, *options);
  AddFileArgument(*command, *options, "FILE", "the data file");
  command->footer(kHeadersFooter);
  command->callback([&session, options] {
    session.command = [&session, options] { return RunHeaders(session, *options); };
  });
}

}  // namespace qv
