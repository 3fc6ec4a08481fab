#include "cli/DataFile.h"
#include "cli/FormatColumns.h"
#include "cli/JsonText.h"
#include "cli/Kinds.h"
#include "cli/RecordJson.h"
#include "cli/Table.h"
#include "platform/CodePage.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace qv {
namespace {

constexpr const char* kFooter = R"(
Examples:
  qvassembly import --kind parts parts.csv
  qvassembly import --kind parts --format orders --as jsonl parts.csv | wc -l
  qvassembly import --kind tools --as table --encoding windows-1252 tools.txt)";

struct ImportOptions : FileOptions {
  std::string as;
};

/// The records of one import, as a table or as JSON.
class ImportPrinter {
 public:
  ImportPrinter(Session& session, CAssemblyFileMgr& manager, RecordKind kind, const Utf8Path& file)
      : session_(session),
        manager_(manager),
        operations_(OperationsOf(kind)),
        type_(RecordTypeOf(kind)),
        file_(file),
        count_(static_cast<std::size_t>(operations_.count(manager))) {}

  void PrintTable(const OptionForm& form);
  void PrintDocument(const OptionForm& form);
  void PrintLines();

 private:
  void* At(std::size_t row) { return operations_.at(manager_, static_cast<int>(row)); }
  std::string RecordJson(std::size_t row);

  Session& session_;
  CAssemblyFileMgr& manager_;
  const KindOperations& operations_;
  const RecordType& type_;
  const Utf8Path& file_;
  std::size_t count_;
};

void ImportPrinter::PrintTable(const OptionForm& form) {
  std::vector<TableColumn> columns;
  std::vector<const RecordField*> fields;
  for (const FormatColumn& column : ColumnsOf(form)) {
    const RecordField* const field = FindFieldOfColumn(type_, column.keyword);
    if (field == nullptr) continue;
    fields.push_back(field);
    columns.push_back(
        {ToUtf8(column.keyword), field->type != FieldType::Text && field->type != FieldType::Bool});
  }
  if (columns.empty()) return;
  Table table(std::move(columns), count_, [&](std::size_t row, std::size_t column) {
    return session_.coding.Decode(GetText(At(row), *fields[column]));
  });
  table.FitTo(session_.streams.width);
  session_.Write(table.Header(session_.streams.ColoursOut()));
  for (std::size_t row = 0; row < count_; ++row) session_.Write(table.Row(row));
  if (table.LeftOut() > 0)
    session_.remarks.Note("qvassembly: " + std::to_string(table.LeftOut()) + " of " +
                          std::to_string(fields.size()) + " columns do not fit; --as json has them all");
}

std::string ImportPrinter::RecordJson(std::size_t row) {
  std::string json;
  const std::string_view lost = AppendRecordJson(json, type_, At(row), session_.coding);
  if (!lost.empty())
    session_.remarks.Warn(
        {file_, 0, std::string(lost), "number-not-finite", "",
         "record " + std::to_string(row + 1) + ": JSON has no such number; null stands in"});
  return json;
}

void ImportPrinter::PrintDocument(const OptionForm& form) {
  std::string start = "{\"kind\":";
  AppendJsonText(start, type_.name);
  start += ",\"format\":";
  AppendJsonText(start, ToUtf8(form.Name));
  start += ",\"headers\":[";
  bool isFirst = true;
  for (const std::string& header : HeadersOf(session_, manager_)) {
    if (!isFirst) start += ',';
    isFirst = false;
    AppendJsonText(start, header);
  }
  session_.Write(start + "],\"records\":[");
  for (std::size_t row = 0; row < count_; ++row) session_.Write((row == 0 ? "\n" : ",\n") + RecordJson(row));
  session_.Write(count_ == 0 ? "]}\n" : "\n]}\n");
}

void ImportPrinter::PrintLines() {
  for (std::size_t row = 0; row < count_; ++row) session_.Write(RecordJson(row) + "\n");
}

int RunImport(Session& session, const ImportOptions& options) {
  const RecordKind kind = KindForUse(options.kind, KindUse::Import);
  const FormatFile formats(options.config, {options.file}, session.remarks);
  const OptionForm& form = formats.FindFor(options.format, options.file, session.remarks);
  CAssemblyFileMgr manager;
  ImportFile(session, manager, kind, formats, form, options.file);
  ImportPrinter printer(session, manager, kind, options.file);
  const std::string as = !options.as.empty() ? options.as : session.streams.outIsTerminal ? "table" : "json";
  if (as == "table")
    printer.PrintTable(form);
  else if (as == "json")
    printer.PrintDocument(form);
  else
    printer.PrintLines();
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
  command->footer(kFooter);
  command->callback([&session, options] {
    session.command = [&session, options] { return RunImport(session, *options); };
  });
}

}  // namespace qv
