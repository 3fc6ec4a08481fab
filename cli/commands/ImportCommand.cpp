#include "cli/DataFile.h"
#include "cli/check/Suggestions.h"
#include "cli/commands/Commands.h"
#include "cli/records/RecordJson.h"
#include "cli/terminal/DisplayText.h"
#include "cli/terminal/Table.h"
#include "format/FormatColumns.h"
#include "manager/FileStart.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"

#include <utility>
#include <vector>

namespace qv {
namespace {

constexpr const char* kImportFooter = R"(
Examples:
  qvassembly import --kind parts parts.csv
  qvassembly import --kind parts --format orders --as jsonl parts.csv | wc -l
  qvassembly import --kind tools --as table --encoding windows-1252 tools.txt)";

constexpr const char* kHeadersFooter = R"(
Examples:
  qvassembly headers parts.csv
  qvassembly headers --format laser-list list.txt)";

struct ImportOptions : FileOptions {
  std::string as;
};

/// Where the records of an import go, one by one: a file of any length takes no more memory than a record.
class RecordOutput {
 public:
  RecordOutput(Session& session, const DataFile& file)
      : session_(session), file_(file), type_(RecordTypeOf(file.kind)) {}
  virtual ~RecordOutput() = default;

  virtual void Begin(const std::vector<std::string>&) {}
  virtual void Put(void* record) = 0;
  virtual void End() {}

 protected:
  void Print(std::string& text) {
    session_.Write(text);
    text.clear();
  }

  Session& session_;
  const DataFile& file_;
  const RecordType& type_;
};

class JsonLines : public RecordOutput {
 public:
  using RecordOutput::RecordOutput;

  void Put(void* record) override {
    JsonWriter json(pending_);
    PutObject(json, record);
    pending_ += '\n';
    Print(pending_);
  }

 protected:
  void PutObject(JsonWriter& json, void* record) {
    ++count_;
    const std::string_view lost = WriteRecordJson(json, type_, record, session_.coding);
    if (!lost.empty())
      session_.diagnostics.Warn(
          {file_.path, 0, std::string(lost), "number-not-finite", "",
           "record " + std::to_string(count_) + ": JSON has no such number; null is written instead"});
  }

  std::string pending_;
  std::int64_t count_ = 0;
};

class JsonDocument final : public JsonLines {
 public:
  using JsonLines::JsonLines;

  void Begin(const std::vector<std::string>& headers) override {
    json_.BeginObject();
    json_.Member("kind", type_.name);
    json_.Member("format", ToUtf8(file_.form.Name));
    json_.Key("headers").BeginArray();
    for (const std::string& header : headers) json_.Value(header);
    json_.EndArray();
    json_.Key("records").BeginArray();
    Print(pending_);
  }

  void Put(void* record) override {
    json_.BreakLine();
    PutObject(json_, record);
    Print(pending_);
  }

  void End() override {
    if (count_ > 0) pending_ += '\n';
    json_.EndArray();
    json_.EndObject();
    pending_ += '\n';
    Print(pending_);
  }

 private:
  JsonWriter json_{pending_};
};

/// The columns that the format has. Their widths come from the first rows, which wait until then.
class TableOutput final : public RecordOutput {
 public:
  TableOutput(Session& session, const DataFile& file) : RecordOutput(session, file) {
    for (const FormatColumn& column : ColumnsOf(file.form)) {
      const RecordField* const field = FindFieldOfColumn(type_, column.keyword);
      if (field == nullptr) continue;
      fields_.push_back(field);
      columns_.push_back(
          {ToUtf8(column.keyword), field->type != FieldType::Text && field->type != FieldType::Bool});
    }
  }

  void Put(void* record) override {
    if (fields_.empty()) return;
    Table::Row row;
    for (const RecordField* const field : fields_)
      row.push_back(session_.coding.Decode(GetText(record, *field)));
    if (table_) return session_.Write(table_->Line(row));
    waiting_.push_back(std::move(row));
    if (waiting_.size() == kSample) PrintStart();
  }

  void End() override {
    if (fields_.empty()) return;
    if (!table_) PrintStart();
    if (table_->LeftOut() > 0)
      session_.diagnostics.Note("qvassembly: " + std::to_string(table_->LeftOut()) + " of " +
                                std::to_string(fields_.size()) +
                                " columns do not fit; --as json has them all");
  }

 private:
  static constexpr std::size_t kSample = 1000;

  void PrintStart() {
    table_.emplace(std::move(columns_), waiting_, session_.streams.width);
    session_.Write(table_->Header(session_.streams.ColoursOut()));
    for (const Table::Row& row : std::exchange(waiting_, {})) session_.Write(table_->Line(row));
  }

  std::vector<TableColumn> columns_;
  std::vector<const RecordField*> fields_;
  std::vector<Table::Row> waiting_;
  std::optional<Table> table_;
};

std::unique_ptr<RecordOutput> MakeOutput(Session& session, const DataFile& file, const std::string& wanted) {
  const bool isForPerson = wanted.empty() && session.streams.outIsTerminal;
  if (isForPerson || wanted == "table") return std::make_unique<TableOutput>(session, file);
  if (wanted == "jsonl") return std::make_unique<JsonLines>(session, file);
  return std::make_unique<JsonDocument>(session, file);
}

/// Texts that were read in another encoding than theirs are printed all the same.
void TellOfEncoding(Session& session, const DataStart& start) {
  if (IsWorkbook(start.File()) || IsStream(start.File())) return;
  if (const auto suggestion = SureEncodingOf(start, session.coding)) session.diagnostics.Advise(*suggestion);
}

int RunImport(Session& session, ImportOptions& options) {
  TakeStreams(session, options.type, &options.file, nullptr);
  const RecordKind kind = KindForUse(options.kind, KindUse::Import);
  const FormatFile formats(options.config, {options.file}, session.diagnostics);
  const DataStart start(options.file);
  const OptionForm& form = formats.FindFor(options.format, start, session);
  const DataFile file{options.file, kind, formats, form, options.hasDecimalComma};
  const auto output = MakeOutput(session, file, options.as);
  InputFile source(session, file);
  output->Begin(source.Headers());
  while (void* const record = source.Next()) output->Put(record);
  output->End();
  TellOfEncoding(session, start);
  return kDone;
}

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

void AddImportCommand(CLI::App& program, Session& session) {
  const auto options = std::make_shared<ImportOptions>();
  CLI::App& command =
      AddCommand(program, session, "import", "Read a data file and print its records", options, RunImport);
  AddKindOption(command, *options, KindUse::Import);
  AddFormatOptions(command, *options);
  AddDecimalCommaOption(command, options->hasDecimalComma);
  AddChoice(command, "--as", options->as, "FORM", {"table", "json", "jsonl"},
            "table, json or jsonl (default: table on a terminal, else json)");
  AddTypeOption(command, options->type);
  AddArgument(command, "FILE", options->file, "the data file; - for standard input");
  command.footer(kImportFooter);
}

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
