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

std::string NameOf(CellForm form, const char* duration) {
  const char* const names[] = {"-", "text", "whole", "number", "word", duration};
  return names[static_cast<std::size_t>(form)];
}

std::string ReadAs(const FieldColumn& column) { return NameOf(column.readAs, "duration"); }

std::string WrittenAs(const FieldColumn& column) {
  if (column.writtenAs == CellForm::Real) return std::to_string(column.decimals) + " decimals";
  return NameOf(column.writtenAs, "hours:minutes:seconds");
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

void PrintKeywords(Session& session, std::span<const RecordType> kinds) {
  std::vector<TableColumn> columns = {{"keyword"}, {"read as"}, {"written as"}, {"length", true}, {"words"}};
  const bool hasKinds = kinds.size() > 1;
  if (hasKinds) columns.insert(columns.begin(), {"kind"});
  std::vector<Table::Row> lines;
  for (const RecordType& kind : kinds)
    for (const KindColumn& known : AllColumns(kind)) {
      const FieldColumn& column = *known.column;
      Table::Row line = {std::string(column.keyword), ReadAs(column), WrittenAs(column), LengthOf(known),
                         ShownWords(column)};
      if (hasKinds) line.insert(line.begin(), std::string(kind.name));
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

void WriteKeyword(JsonWriter& json, const RecordType& kind, const KindColumn& known) {
  const FieldColumn& column = *known.column;
  json.BreakLine();
  json.BeginObject();
  json.Member("kind", kind.name);
  json.Member("keyword", column.keyword);
  json.Member("field", known.field->stem);
  json.Member("readAs", column.IsRead() ? ReadAs(column) : "");
  json.Member("writtenAs", column.IsWritten() ? WrittenAs(column) : "");
  if (!LengthOf(known).empty()) json.Member("length", known.field->capacity);
  WriteWords(json, "wordsRead", column.readWords);
  WriteWords(json, "wordsWritten", column.writtenWords);
  json.EndObject();
}

int RunKeywords(Session& session, KeywordsOptions& options) {
  const std::span<const RecordType> kinds = KindsFor(options.kind);
  if (options.as != "json") {
    PrintKeywords(session, kinds);
    return kDone;
  }
  session.Write(JsonLine([&](JsonWriter& json) {
    json.BeginArray();
    for (const RecordType& kind : kinds)
      for (const KindColumn& known : AllColumns(kind)) WriteKeyword(json, kind, known);
    json.EndArray();
  }));
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
