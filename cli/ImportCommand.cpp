#include "cli/DataFile.h"
#include "cli/FormatColumns.h"
#include "cli/JsonText.h"
#include "cli/RecordJson.h"
#include "cli/Table.h"
#include "platform/CodePage.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace qv {
namespace {

constexpr const char* kImportFooter = R"(
Examples:
  qvassembly import --kind parts parts.csv
  qvassembly import --kind parts --format orders --as jsonl parts.csv | wc -l
  qvassembly import --kind tools --as table --encoding windows-1252 tools.txt)";

struct ImportOptions : FileOptions {
  std::string as;
};

/// A table needs all records at once, as its columns are as wide as the widest cell.
void PrintTable(Session& session, const DataFile& file) {
  CAssemblyFileMgr manager;
  ImportFile(session, manager, file);
  const KindOperations& operations = OperationsOf(file.kind);
  const auto count = static_cast<std::size_t>(operations.count(manager));
  std::vector<TableColumn> columns;
  std::vector<const RecordField*> fields;
  for (const FormatColumn& column : ColumnsOf(file.form)) {
    const RecordField* const field = FindFieldOfColumn(RecordTypeOf(file.kind), column.keyword);
    if (field == nullptr) continue;
    fields.push_back(field);
    columns.push_back(
        {ToUtf8(column.keyword), field->type != FieldType::Text && field->type != FieldType::Bool});
  }
  if (columns.empty()) return;
  Table table(std::move(columns), count, [&](std::size_t row, std::size_t column) {
    void* const record = operations.at(manager, static_cast<int>(row));
    return session.coding.Decode(GetText(record, *fields[column]));
  });
  table.FitTo(session.streams.width);
  session.Write(table.Header(session.streams.ColoursOut()));
  for (std::size_t row = 0; row < count; ++row) session.Write(table.Row(row));
  if (table.LeftOut() > 0)
    session.remarks.Note("qvassembly: " + std::to_string(table.LeftOut()) + " of " +
                         std::to_string(fields.size()) + " columns do not fit; --as json has them all");
}

/// Prints records as JSON.
class JsonPrinter {
 public:
  JsonPrinter(Session& session, const DataFile& file)
      : session_(session), file_(file), type_(RecordTypeOf(file.kind)) {}

  /// Each record as soon as it is read, so that a file of any length takes no more memory than a record.
  void PrintLines() {
    ReadFile(session_, manager_, file_, [this](void* record) { PrintRecord("", record, "\n"); });
  }

  /// A document is whole or not there.
  void PrintDocument();

 private:
  std::string DocumentStart();
  void PrintRecord(std::string_view before, void* record, std::string_view after);

  Session& session_;
  const DataFile& file_;
  const RecordType& type_;
  CAssemblyFileMgr manager_;
  std::int64_t printed_ = 0;
};

void JsonPrinter::PrintDocument() {
  ImportFile(session_, manager_, file_);
  const KindOperations& operations = OperationsOf(file_.kind);
  const int count = operations.count(manager_);
  session_.Write(DocumentStart());
  for (int row = 0; row < count; ++row)
    PrintRecord(row == 0 ? "\n" : ",\n", operations.at(manager_, row), "");
  session_.Write(count == 0 ? "]}\n" : "\n]}\n");
}

std::string JsonPrinter::DocumentStart() {
  std::string start = "{\"kind\":";
  AppendJsonText(start, type_.name);
  start += ",\"format\":";
  AppendJsonText(start, ToUtf8(file_.form.Name));
  start += ",\"headers\":[";
  bool isFirst = true;
  for (const std::string& header : HeadersOf(session_, manager_)) {
    if (!isFirst) start += ',';
    isFirst = false;
    AppendJsonText(start, header);
  }
  return start + "],\"records\":[";
}

void JsonPrinter::PrintRecord(std::string_view before, void* record, std::string_view after) {
  ++printed_;
  std::string json(before);
  const std::string_view lost = AppendRecordJson(json, type_, record, session_.coding);
  if (!lost.empty())
    session_.remarks.Warn(
        {file_.path, 0, std::string(lost), "number-not-finite", "",
         "record " + std::to_string(printed_) + ": JSON has no such number; null stands in"});
  session_.Write(json.append(after));
}

int RunImport(Session& session, const ImportOptions& options) {
  const RecordKind kind = KindForUse(options.kind, KindUse::Import);
  const FormatFile formats(options.config, {options.file}, session.remarks);
  const OptionForm& form = formats.FindFor(options.format, options.file, session);
  const DataFile file{options.file, kind, formats, form};
  const std::string as = !options.as.empty() ? options.as : session.streams.outIsTerminal ? "table" : "json";
  if (as == "table")
    PrintTable(session, file);
  else if (as == "json")
    JsonPrinter(session, file).PrintDocument();
  else
    JsonPrinter(session, file).PrintLines();
  return kDone;
}

}  // namespace

void AddImportCommand(CLI::App& program, Session& session) {
  CLI::App* const command = program.add_subcommand("import", "Read a data file and print its records");
  const auto options = std::make_shared<ImportOptions>();
  AddKindOption(*command, *options, KindNames(KindUse::Import));
  AddConfigOption(*command, options->config);
  AddFormatOption(*command, *options);
  command->add_option("--as", options->as, "table, json or jsonl (default: table on a terminal, else json)")
      ->check(CLI::IsMember({"table", "json", "jsonl"}))
      ->type_name("FORM");
  AddFileArgument(*command, *options, "FILE", "the data file");
  command->footer(kImportFooter);
  command->callback([&session, options] {
    session.command = [&session, options] { return RunImport(session, *options); };
  });
}

}  // namespace qv
