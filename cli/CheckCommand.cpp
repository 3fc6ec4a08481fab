#include "cli/DataFile.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace qv {
namespace {

constexpr const char* kFooter = R"(
Ends with 1 when something was not taken as it stands in the file.

Examples:
  qvassembly check --kind parts --format orders parts.csv
  qvassembly check --kind tools --diagnostics json tools.txt 2>report.jsonl)";

std::string Counted(std::int64_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

int RunCheck(Session& session, const FileOptions& options) {
  const RecordKind kind = KindForUse(options.kind, KindUse::Import);
  const FormatFile formats(options.config, {options.file}, session.remarks);
  const OptionForm& form = formats.FindFor(options.format, options.file, session.remarks);
  CAssemblyFileMgr manager;
  std::int64_t records = 0;
  ReadFile(session, manager, {options.file, kind, formats, form}, [&](void*) { ++records; });
  const std::int64_t warnings = session.remarks.Warnings();
  session.remarks.Note(options.file + ": " + Counted(records, "record") + ", " +
                       (warnings == 0 ? "nothing to remark on" : Counted(warnings, "remark")));
  return warnings == 0 ? kDone : kWarned;
}

}  // namespace

void AddCheckCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("check", "Read a data file and print only what is wrong with it");
  const auto options = std::make_shared<FileOptions>();
  AddKindOption(*command, *options, KindNames(KindUse::Import));
  AddConfigOption(*command, options->config);
  AddFormatOption(*command, *options);
  AddFileArgument(*command, *options, "FILE", "the data file");
  command->footer(kFooter);
  command->callback(
      [&session, options] { session.command = [&session, options] { return RunCheck(session, *options); }; });
}

}  // namespace qv
