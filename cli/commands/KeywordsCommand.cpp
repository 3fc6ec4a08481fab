#include "cli/JsonWriter.h"
#include "cli/commands/Commands.h"
#include "cli/terminal/Table.h"
#include "engines/columns/Words.h"

#include <algorithm>

namespace qv {
namespace {

constexpr const char* kKeywordsFooter = R"(
"Ignore", which stands for a column that is not read, is a keyword of every kind.
A dash means that the column is not known in that direction. The length is in
bytes; longer texts are cut.

Examples:
  qvassembly keywords --kind parts
  qvassembly keywords --as json | jq -r '.[].keyword')";

struct KeywordsOptions {
  std::string kind;
  std::string as = "table";
};

struct KeywordRow {
  std::string_view kind;
  KindColumn known;
};

std::vector<KeywordRow> RowsOf(const KeywordsOptions& options) {
  std::vector<KeywordRow> rows;
  const std::string wanted =
      options.kind.empty() ? "" : std::string(RecordTypeOf(KindForUse(options.kind, KindUse::Any)).name);
  for (const RecordType& type : RecordTypes()) {
    if (!wanted.empty() && type.name != wanted) continue;
    for (const KindColumn& known : AllColumns(type)) rows.push_back({type.name, known});
  }
  return rows;
}

std::string ReadAs(const FieldColumn& column) {
  constexpr const char* kNames[] = {"-", "text", "whole", "number", "word", "duration"};
  return kNames[static_cast<std::size_t>(column.readAs)];
}

std::string WrittenAs(const FieldColumn& column) {
  if (column.writtenAs == CellForm::Real) return std::to_string(column.decimals) + " decimals";
  constexpr const char* kNames[] = {"-", "text", "whole", "number", "word", "hours:minutes:seconds"};
  return kNames[static_cast<std::size_t>(column.writtenAs)];
}

std::string LengthOf(const KindColumn& known) {
  const bool isText = known.column->readAs == CellForm::Text || known.column->writtenAs == CellForm::Text;
  return isText && known.field->capacity > 0 ? std::to_string(known.field->capacity) : "";
}

std::vector<std::string_view> WordsOf(const WordTable* table) {
  std::vector<std::string_view> words;
  if (table != nullptr)
    for (const Word& word : table->words) words.push_back(word.text);
  return words;
}

/// The words of both directions, with a mark at those of one alone.
std::string ShownWords(const FieldColumn& column) {
  const auto read = WordsOf(column.readWords);
  std::string shown;
  for (const std::string_view word : WordsOf(column.writtenWords)) {
    const bool isRead = std::find(read.begin(), read.end(), word) != read.end();
    shown.append(shown.empty() ? "" : ", ").append(word).append(isRead ? "" : " (written only)");
  }
  return shown;
}

void PrintKeywords(Session& session, const std::vector<KeywordRow>& rows, bool hasKinds) {
  std::vector<TableColumn> columns = {{"keyword"}, {"read as"}, {"written as"}, {"length", true}, {"words"}};
  if (hasKinds) columns.insert(columns.begin(), {"kind"});
  std::vector<Table::Row> lines;
  for (const auto& [kind, known] : rows) {
    const FieldColumn& column = *known.column;
    Table::Row line = {std::string(column.keyword), ReadAs(column), WrittenAs(column), LengthOf(known),
                       ShownWords(column)};
    if (hasKinds) line.insert(line.begin(), std::string(kind));
    lines.push_back(std::move(line));
  }
  const Table table(std::move(columns), lines, 0);
  session.Write(table.Header(session.streams.ColoursOut()));
  for (const Table::Row& line : lines) session.Write(table.Line(line));
}

void WriteWords(JsonWriter& json, std::string_view key, const WordTable* table) {
  if (table == nullptr) return;
  json.Key(key).BeginArray();
  for (const std::string_view word : WordsOf(table)) json.Value(word);
  json.EndArray();
}

std::string KeywordsJson(const std::vector<KeywordRow>& rows) {
  std::string text;
  JsonWriter json(text);
  json.BeginArray();
  for (const auto& [kind, known] : rows) {
    json.BreakLine();
    json.BeginObject();
    json.Member("kind", kind);
    json.Member("keyword", known.column->keyword);
    json.Member("field", known.field->stem);
    json.Member("readAs", known.column->IsRead() ? ReadAs(*known.column) : "");
    json.Member("writtenAs", known.column->IsWritten() ? WrittenAs(*known.column) : "");
    if (!LengthOf(known).empty()) json.Member("length", known.field->capacity);
    WriteWords(json, "wordsRead", known.column->readWords);
    WriteWords(json, "wordsWritten", known.column->writtenWords);
    json.EndObject();
  }
  json.EndArray();
  return text + "\n";
}

int RunKeywords(Session& session, KeywordsOptions& options) {
  const std::vector<KeywordRow> rows = RowsOf(options);
  if (options.as == "json")
    session.Write(KeywordsJson(rows));
  else
    PrintKeywords(session, rows, options.kind.empty());
  return kDone;
}

}  // namespace

void AddKeywordsCommand(CLI::App& program, Session& session) {
  const auto options = std::make_shared<KeywordsOptions>();
  CLI::App& command =
      AddCommand(program, session, "keywords", "Print the keywords of columns, and what their cells hold",
                 options, RunKeywords);
  AddOption(command, "--kind", options->kind, "KIND",
            "one of " + KindNames(KindUse::Any) + " (default: all)");
  AddChoice(command, "--as", options->as, "FORM", {"table", "json"}, "table or json");
  command.footer(kKeywordsFooter);
}

}  // namespace qv
