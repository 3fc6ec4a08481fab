#include "cli/DataFile.h"
#include "cli/check/CheckReport.h"
#include "cli/check/RejectedRows.h"
#include "cli/check/Suggestions.h"
#include "cli/commands/Commands.h"
#include "platform/CodePage.h"

namespace qv {
namespace {

constexpr const char* kCheckFooter = R"(
Ends with 1 when something was not taken as it stands in the file. Suggestions
are given only where they are certain, and do not count.

Examples:
  qvassembly check --kind parts --format orders parts.csv
  qvassembly check --kind parts --rejects left-out.csv parts.csv
  qvassembly check --kind tools --as json tools.txt | jq .counts)";

struct CheckOptions : FileOptions {
  std::string as = "text";
  std::optional<std::string> rejects;
};

std::optional<RejectedRows> PrepareRejects(const CheckOptions& options, const FormatFile& formats) {
  if (!options.rejects) return std::nullopt;
  if (IsWorkbook(options.file)) throw UsageError("--rejects: the rows of a workbook are no lines of text");
  if (IsStream(options.file) || IsStandardStream(options.file))
    throw UsageError("--rejects: a pipe cannot be read a second time");
  if (IsSameFile(*options.rejects, options.file)) throw UsageError("--rejects names the data file itself");
  if (formats.IsFile() && IsSameFile(*options.rejects, formats.Path()))
    throw UsageError("--rejects names the format file");
  return std::optional<RejectedRows>(std::in_place, options.file, *options.rejects);
}

int ReportOn(Session& session, const CheckOptions& options, CheckReport& report) {
  const RecordKind kind = KindForUse(options.kind, KindUse::Import);
  const FormatFile formats(options.config, {options.file}, session.diagnostics);
  const DataStart start(options.file);
  const OptionForm& form = formats.FindFor(options.format, start, session);
  const DataFile file{options.file, kind, formats, form, options.hasDecimalComma};
  std::optional<RejectedRows> rejects = PrepareRejects(options, formats);
  report.CopyLeftOutTo(rejects ? &*rejects : nullptr);
  std::int64_t records = 0;
  for (InputFile source(session, file); source.Next() != nullptr; ++records)
    if (!session.streams.out) throw ReportedFileError();  // nobody reads the report any more
  if (rejects) rejects->Commit();
  report.Finish(Suggestions(file, start, report.Findings(records), session.coding), ToUtf8(form.Name),
                records);
  return session.diagnostics.Warnings() == 0 ? kDone : kWarned;
}

int RunCheck(Session& session, CheckOptions& options) {
  TakeStreams(session, options.type, &options.file, nullptr);
  CheckReport report(session, options.file, options.kind, options.as == "json");
  try {
    return ReportOn(session, options, report);
  } catch (...) {
    report.Abandon();
    throw;
  }
}

}  // namespace

void AddCheckCommand(CLI::App& program, Session& session) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App& command = AddCommand(program, session, "check",
                                 "Read a data file and print only what is wrong with it", options, RunCheck);
  AddKindOption(command, *options, KindUse::Import);
  AddFormatOptions(command, *options);
  AddDecimalCommaOption(command, options->hasDecimalComma);
  AddChoice(command, "--as", options->as, "FORM", {"text", "json"},
            "text (remarks on standard error) or json (one document)");
  AddOption(command, "--rejects", options->rejects, "FILE",
            "writes the rows that are left out, as they stand");
  AddTypeOption(command, options->type);
  AddArgument(command, "FILE", options->file, "the data file; - for standard input");
  command.footer(kCheckFooter);
}

}  // namespace qv
