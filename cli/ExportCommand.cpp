#include "cli/DataFile.h"
#include "cli/RecordJsonReader.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/FileSystem.h"

#include <CLI/CLI.hpp>

#include <istream>
#include <memory>

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

std::vector<AnyRecord> ReadRecords(Session& session, const RecordType& type, const std::string& name,
                                   JsonSource::Read read, std::string& reason) {
  const auto told = [&](const JsonRemark& remark) {
    return Remark{name, remark.line, remark.key, remark.code, remark.text, remark.message};
  };
  JsonSource source(std::move(read));
  try {
    auto records = ReadRecordsJson(source, type, session.coding,
                                   [&](const JsonRemark& remark) { session.remarks.Warn(told(remark)); });
    if (!source.HasFailed()) return records;
  } catch (const JsonError& error) {
    // What could not be read to its end looks like JSON that breaks off.
    if (!source.HasFailed()) throw FileError(told(error.remark));
  }
  throw FileError({name, 0, "", "file-not-opened", "", "cannot be read: " + ToUtf8(reason)});
}

std::vector<AnyRecord> ReadStandardInput(Session& session, const RecordType& type) {
  std::string reason = "standard input reports an error";
  const auto read = [&](char* buffer, std::size_t capacity) -> std::ptrdiff_t {
    session.streams.in.read(buffer, static_cast<std::streamsize>(capacity));
    return session.streams.in.bad() ? -1 : static_cast<std::ptrdiff_t>(session.streams.in.gcount());
  };
  return ReadRecords(session, type, "standard input", read, reason);
}

std::vector<AnyRecord> ReadRecordsFile(Session& session, const RecordType& type, const Utf8Path& path) {
  std::string reason;
  const auto file = Files().Open(PathFromUtf8(path), OpenMode::Read, reason);
  if (file == nullptr)
    throw FileError({path, 0, "", "file-not-opened", "", "cannot be read: " + ToUtf8(reason)});
  const auto read = [&](char* buffer, std::size_t capacity) {
    const std::ptrdiff_t count = file->Read(buffer, capacity);
    if (count < 0) reason = file->Reason();
    return count;
  };
  return ReadRecords(session, type, path, read, reason);
}

int RunExport(Session& session, const ExportOptions& options) {
  const RecordKind kind = KindForUse(options.kind, KindUse::Export);
  const FormatFile formats(options.config, {options.file}, session.remarks);
  const OptionForm& form = formats.FindFor(options.format, options.file, session);
  const RecordType& type = RecordTypeOf(kind);
  const std::vector<AnyRecord> records = options.records == "-"
                                             ? ReadStandardInput(session, type)
                                             : ReadRecordsFile(session, type, options.records);
  WriteFile(session, {options.file, kind, formats, form}, [&](const TakeRecord& write) {
    for (const AnyRecord& record : records)
      if (!write(record.Pointer())) break;
    return true;
  });
  return kDone;
}

}  // namespace

void AddExportCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand("export", "Write records from JSON to a data file");
  const auto options = std::make_shared<ExportOptions>();
  AddKindOption(*command, *options, KindNames(KindUse::Export));
  AddConfigOption(*command, options->config);
  AddFormatOption(*command, *options);
  command->add_option("--records", options->records, "the JSON file with the records; - for standard input")
      ->required()
      ->type_name("RECORDS");
  AddFileArgument(*command, *options, "OUT", "the data file that is written");
  command->footer(kExportFooter);
  command->callback([&session, options] {
    session.command = [&session, options] { return RunExport(session, *options); };
  });
}

}  // namespace qv
