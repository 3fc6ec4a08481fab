#include "cli/DataFile.h"
#include "cli/commands/Commands.h"
#include "cli/terminal/DisplayText.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"

#include <algorithm>

namespace qv {
namespace {

constexpr const char* kFormatNameFooter = R"(
A text file carries the name of its format in its first line. "set" replaces that
line, or puts one above the first line: it is meant for formats whose header row
is below line 1. Whether there is such a format is not checked.

Examples:
  qvassembly format-name get list.txt
  qvassembly format-name set list.txt laser-list)";

struct FormatNameOptions {
  std::optional<std::string> config;
  std::string file;
  std::string name;
};

int GetFormatName(Session& session, FormatNameOptions& options) {
  std::optional<FormatFile> formats;
  if (FormatFile::NamedFile(options.config))
    formats.emplace(options.config, std::vector<Utf8Path>(), session.diagnostics);
  const std::string stored = DataStart(options.file).FormatName(session.coding);
  if (session.diagnostics.HasFailed()) throw ReportedFileError();
  if (stored.empty() || (formats && formats->Lookup(stored) == nullptr)) return kWarned;
  const std::string name = ToUtf8(stored);
  session.Write((session.streams.outIsTerminal ? Harmless(name) : name) + "\n");
  return kDone;
}

int SetFormatName(Session& session, FormatNameOptions& options) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
  if (options.name.empty() || std::any_of(options.name.begin(), options.name.end(), isControl))
    throw UsageError("a format name is a text without control characters");
  if (IsWorkbook(options.file))
    throw FileError({options.file, 0, "", "unsupported-file-type", ".xls",
                     "a workbook gets its format name only when it is exported; it is left as it is"});
  if (IsStream(options.file))
    throw FileError(
        {options.file, 0, "", "file-not-written", "", "a pipe has no first line that could be changed"});
  CAssemblyFileMgr manager;
  manager.SetCurrentFormatToFile(FromUtf8(options.name).c_str(), PathFromUtf8(options.file).c_str());
  if (session.diagnostics.HasFailed()) throw ReportedFileError();
  return kDone;
}

}  // namespace

void AddFormatNameCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("format-name", "Print or set the name of the format that a data file carries");
  command->require_subcommand(1);
  command->fallthrough();
  command->footer(kFormatNameFooter);
  const auto options = std::make_shared<FormatNameOptions>();
  CLI::App& get = AddCommand(*command, session, "get", "Print the name; ends with 1 where there is none",
                             options, GetFormatName);
  AddOption(get, "--config", options->config, "FILE",
            "print only a name that this format file holds (default: the one that QVASSEMBLY_CONFIG names)");
  AddArgument(get, "FILE", options->file, "the data file");
  CLI::App& set = AddCommand(*command, session, "set", "Write the name into the file's first line", options,
                             SetFormatName);
  AddArgument(set, "FILE", options->file, "the data file");
  AddArgument(set, "NAME", options->name, "the name");
}

}  // namespace qv
