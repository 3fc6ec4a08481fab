#include "cli/DataFile.h"
#include "cli/commands/Commands.h"
#include "cli/records/RecordJson.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/FileSystem.h"

namespace qv {
namespace {

constexpr const char* kExportFooter = R"(
RECORDS holds what "import --as json" prints, or an array of records, or one
record per line. A key that is left out keeps the record's default.

Examples:
  qvassembly export --kind parts --format orders --records parts.json parts.csv
  make-list | qvassembly export --kind job-progress --format job-progress \
    --records - progress.txt)";

struct ExportOptions : FileOptions {
  std::string records;
};

std::unique_ptr<OpenFile> OpenRecords(const Utf8Path& path) {
  std::string reason;
  auto file = Files().Open(PathFromUtf8(path), OpenMode::Read, reason);
  if (file == nullptr)
    throw FileError({path, 0, "", "file-not-opened", "", "cannot be read: " + ToUtf8(reason)});
  return file;
}

void TakeRecordsFromStream(Session& session, ExportOptions& options) {
  if (options.records != "-") return;
  if (!session.standardStreams)
    session.standardStreams = WithStandardStreams(session.streams, session.diagnostics.style.isStrict);
  options.records = PathOfStream(StandardStream::Input, "json");
}

int RunExport(Session& session, ExportOptions& options) {
  TakeStreams(session, options.type, nullptr, &options.file);
  TakeRecordsFromStream(session, options);
  const RecordKind kind = KindForUse(options.kind, KindUse::Export);
  const FormatFile formats(options.config, {options.records, options.file}, session.diagnostics);
  const OptionForm& form = formats.FindFor(options.format, options.file, session);
  const std::unique_ptr<OpenFile> input = OpenRecords(options.records);
  OutputFile target(session, {options.file, kind, formats, form, options.hasDecimalComma});
  ReadRecordsJson(
      options.records, *input, RecordTypeOf(kind), session.coding,
      [&](const Utf8Diagnostic& warning) { session.diagnostics.Warn(warning); },
      [&](const AnyRecord& record) { target.Put(record.Pointer()); });
  target.Commit();
  return kDone;
}

}  // namespace

void AddExportCommand(CLI::App& program, Session& session) {
  const auto options = std::make_shared<ExportOptions>();
  CLI::App& command =
      AddCommand(program, session, "export", "Write records from JSON to a data file", options, RunExport);
  AddKindOption(command, *options, KindUse::Export);
  AddFormatOptions(command, *options);
  AddToDecimalCommaOption(command, options->hasDecimalComma);
  AddOption(command, "--records", options->records, "RECORDS",
            "the JSON file with the records; - for standard input")
      ->required();
  AddTypeOption(command, options->type);
  AddArgument(command, "OUT", options->file, "the data file that is written; - for standard output");
  command.footer(kExportFooter);
}

}  // namespace qv
