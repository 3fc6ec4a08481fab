#include "cli/commands/Commands.h"
#include "cli/formats/FormatFile.h"
#include "manager/FormatOptionDialog.h"
#include "platform/ConsoleProgram.h"
#include "platform/Interruption.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/MessageBox.h>

namespace qv {
namespace {

constexpr const char* kOptionsFooter = R"(
Examples:
  qvassembly options --config AssemblyFormats.xml
  qvassembly options --sample parts.csv --format orders)";

struct OptionsOptions {
  std::optional<std::string> config;
  std::string sample;
  std::string format;
};

int RunOptions(Session& session, OptionsOptions& options) {
  std::vector<Utf8Path> samples;
  if (!options.sample.empty()) samples.push_back(options.sample);
  const FormatFile formats(options.config, samples, session.diagnostics, FormatFile::Use::Change);
  std::string format;
  if (!options.format.empty()) format = formats.Find(options.format).Name;
  if (const std::string reason = WhyNoFormatOptionDialog(); !reason.empty())
    throw FileError({"", 0, "", "no-dialog", "", reason});
  // The dialog may have something to ask, and whoever sees it can answer.
  SetMessageBoxHandler(nullptr, nullptr);
  // One that nobody named and that is not there yet is nothing to remark on: the dialog is there to make it.
  session.diagnostics.Ignore(DiagnosticCode::ConfigurationMissing);
  ReleaseInterruptions();  // a window that waits for its user has nothing to clear
  CAssemblyFileMgr manager;
  manager.ASSOptionDlgShow(!options.sample.empty(), format.data(), nullptr,
                           PathFromUtf8(formats.Path()).c_str(), PathFromUtf8(options.sample).c_str(), 0);
  return session.diagnostics.HasFailed() ? kFileTrouble : kDone;
}

}  // namespace

void AddOptionsCommand(CLI::App& program, Session& session) {
  const auto options = std::make_shared<OptionsOptions>();
  CLI::App& command = AddCommand(program, session, "options",
                                 "Show the format option dialog, where there is one", options, RunOptions);
  AddConfigOption(command, options->config);
  AddOption(command, "--sample", options->sample, "FILE", "a data file whose headers the dialog can show");
  AddOption(command, "--format", options->format, "NAME", "the format to show (default: the current one)");
  command.footer(kOptionsFooter);
}

}  // namespace qv
