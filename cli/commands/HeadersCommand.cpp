#include "cli/DataFile.h"
#include "cli/terminal/DisplayText.h"
#include "manager/FileStart.h"
#include "platform/ConsoleProgram.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace qv {
namespace {

constexpr const char* kHeadersFooter = R"(
Examples:
  qvassembly headers parts.csv
  qvassembly headers --format laser-list list.txt)";

int RunHeaders(Session& session, const FileOptions& options) {
  const FormatFile formats(options.config, {options.file}, session.diagnostics);
  const OptionForm& form = formats.FindFor(options.format, options.file, session);
  auto headers = ReadHeaders(form, PathFromUtf8(options.file).c_str());
  if (session.diagnostics.HasFailed()) throw ReportedFileError();
  headers = DecodedHeaders(session, headers);
  for (const std::string& header : headers)
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
  AddTypeOption(*command, options->type);
  AddFileArgument(*command, *options, "FILE", "the data file; - for standard input");
  command->footer(kHeadersFooter);
  command->callback([&session, options] {
    session.command = [&session, options] {
      TakeStreams(session, options->type, &options->file, nullptr);
      return RunHeaders(session, *options);
    };
  });
}

}  // namespace qv
