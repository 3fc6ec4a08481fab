#include "cli/DataFile.h"
#include "cli/commands/Commands.h"
#include "cli/terminal/DisplayText.h"
#include "manager/FileStart.h"
#include "platform/ConsoleProgram.h"

namespace qv {
namespace {

constexpr const char* kHeadersFooter = R"(
Examples:
  qvassembly headers parts.csv
  qvassembly headers --format laser-list list.txt)";

int RunHeaders(Session& session, FileOptions& options) {
  TakeStreams(session, options.type, &options.file, nullptr);
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
  const auto options = std::make_shared<FileOptions>();
  CLI::App& command = AddCommand(program, session, "headers",
                                 "Print the headers of a data file, one per line", options, RunHeaders);
  AddFormatOptions(command, *options);
  AddTypeOption(command, options->type);
  AddArgument(command, "FILE", options->file, "the data file; - for standard input");
  command.footer(kHeadersFooter);
}

}  // namespace qv
