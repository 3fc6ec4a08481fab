#include "cli/RunProgram.h"
#include "engines/columns/RecordFields.h"
#include "engines/columns/Words.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "support/CaseFile.h"
#include "support/FormatText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <random>

// Files as they come from everywhere: each is read, checked and converted. Every row gives a record or a
// remark that it was left out, all commands agree on the records, and the findings are those of the list
// beside them.

namespace qv {
namespace {

using Json = nlohmann::json;

const std::filesystem::path kFolder = TestFile("cases/odd");

std::map<std::string, std::string> ReadList(const std::filesystem::path& path) {
  std::map<std::string, std::string> list;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    list.emplace(line.substr(0, line.find(": ")), line);
  }
  return list;
}

// The lines that the report says were left out, with their line ends.
std::string LeftOut(const std::string& text, const Json& report) {
  std::vector<std::string> lines;
  for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
    end = std::min(text.find('\n', at), text.size() - 1) + 1;
    lines.push_back(text.substr(at, end - at));
  }
  std::string left;
  for (const Json& remark : report["remarks"])
    if (remark["code"] == "row-left-out") left += lines.at(remark["line"].get<std::size_t>() - 1);
  return left;
}

// The lines below the first one, as the platform's text files have them.
std::int64_t RowsOf(std::string text) {
  if (kEndOfText >= 0) text.resize(std::min(text.find(static_cast<char>(kEndOfText)), text.size()));
  auto lines = std::count(text.begin(), text.end(), '\n');
  if (!text.empty() && text.back() != '\n') ++lines;
  return std::max<std::int64_t>(lines - 1, 0);
}

std::string Summary(const std::string& name, const Json& report) {
  std::ostringstream line;
  line << name << ": " << report["rows"] << " rows, " << report["records"] << " records";
  for (const auto& [code, count] : report["counts"].items()) line << ", " << code << ' ' << count;
  for (const Json& suggestion : report["suggestions"])
    line << ", " << suggestion["code"].get<std::string>() << " in " << suggestion["line"];
  return line.str();
}

TEST(OddFiles, AreReadCheckedAndConverted) {
  const TemporaryFolder folder;
  std::map<std::string, std::string> expected = ReadList(kFolder / "findings.list");
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".xml" || extension == ".list") continue;
    ++files;
    const std::string name = entry.path().filename().string();
    const std::string path = entry.path().string();
    SCOPED_TRACE(name);
    const std::string rejects = folder / "rejects";
    const Outcome check = RunOn(
        {"--encoding", "utf-8", "check", "--kind", "parts", "--as", "json", "--rejects", rejects, path});
    const Json report = Json::parse(check.out);
    EXPECT_EQ(check.code, report["remarkCount"] == 0 ? 0 : 1);
    EXPECT_EQ(check.error, "");
    EXPECT_EQ(report["rows"], RowsOf(TemporaryFolder::Read(path)));
    EXPECT_EQ(report["rows"], report["records"].get<int>() + report["leftOut"].get<int>());
    EXPECT_EQ(TemporaryFolder::Read(rejects), LeftOut(TemporaryFolder::Read(path), report));

    const Outcome import = RunOn({"--encoding", "utf-8", "import", "--kind", "parts", "--as", "jsonl", path});
    EXPECT_EQ(import.code, 0);
    EXPECT_EQ(std::count(import.out.begin(), import.out.end(), '\n'), report["records"]);
    const Outcome convert = RunOn({"--encoding", "utf-8", "convert", "--kind", "parts", path, "--config",
                                   (kFolder / "AssemblyFormats.xml").string(), folder / "out.csv"});
    EXPECT_EQ(convert.code, 0) << convert.error;

    const bool differs = kEndOfText >= 0 && expected.contains(name + " on Windows");
    const std::string key = differs ? name + " on Windows" : name;
    EXPECT_EQ(Summary(key, report), expected[key]);
  }
  EXPECT_GT(files, 40);
}

/// A format file of the columns, with these attributes where they are not the usual ones.
std::string FormatsOf(const std::string& columns, std::string attributes) {
  for (const auto& [key, value] : {std::pair("Line", "1"), {"Delimiters", "Tab,"}, {"Qualifier", "2"}})
    if (attributes.find(key) == std::string::npos)
      attributes += std::string(" ") + key + "=\"" + value + "\"";
  std::string items;
  std::istringstream keywords(columns);
  for (auto [keyword, rank] = std::pair(std::string(), 0); std::getline(keywords, keyword, ','); ++rank)
    items += keyword + "=" + std::to_string(rank) + " ";
  return FormatFile("f", FormatElement("f", items, attributes));
}

std::string Suggested(const Json& report) {
  std::string messages;
  for (const Json& suggestion : report["suggestions"])
    messages += (messages.empty() ? "" : "; ") + suggestion["message"].get<std::string>();
  return messages;
}

TEST(Suggestions, NameTheEncodingThatTextsAreOf) {
  const TemporaryFolder folder;
  folder.Write("AssemblyFormats.xml", FormatsOf("PartName,PartQuantity", ""));
  for (const auto& row : ReadTable("cli/tables/encodings.table")) {
    if (row[4] == "posix" && kEndOfText >= 0) continue;
    const auto text = EncodeText("a\tb\n" + row[2] + "\n", row[0]);
    ASSERT_TRUE(text) << row[0];
    const Outcome check = RunOn(
        {"--encoding", row[1], "check", "--kind", "parts", "--as", "json", folder.Write("a.txt", *text)});
    const std::string messages = Suggested(Json::parse(check.out));
    EXPECT_TRUE(MatchesPattern(messages, row[3])) << row[0] << " " << row[2] << "\n" << messages;
  }
}

TEST(Suggestions, AreThoseOfTheTable) {
  const TemporaryFolder folder;
  for (const auto& row : ReadTable("cli/tables/suggestions.table")) {
    if (row[5] == "posix" && kEndOfText >= 0) continue;
    folder.Write("AssemblyFormats.xml", FormatsOf(row[1], row[2]));
    const Outcome check = RunOn(
        {"--encoding", "utf-8", "check", "--kind", row[0], "--as", "json", folder.Write("a.txt", row[3])});
    const std::string messages = Suggested(Json::parse(check.out));
    EXPECT_TRUE(MatchesPattern(messages, row[4])) << row[1] << "\n" << row[3] << "\n" << messages;
  }
}

// Files that fit their format, under headings of any kind.
class GoodFile {
 public:
  explicit GoodFile(std::mt19937& random)
      : random_(random), type_(&RecordTypes()[random() % (kRecordKindCount - 1)]) {  // but job progress
    ChooseColumns();
    const std::string delimiter(1, Pick(";\t,|"));
    const bool isWrapped = Chance(3);
    const std::size_t preamble = Chance(4) ? random_() % 4 : 0;
    const std::size_t rows = 1 + random_() % 25;
    for (std::size_t line = 0; line < preamble; ++line)
      text_ += Of({"List of parts", "", "2026-12-01", "ERP 4.1"}) + "\n";
    AddLine(Headings(), delimiter, isWrapped);
    for (std::size_t row = 0; row < rows; ++row) AddLine(Row(), delimiter, isWrapped);
    format_ =
        FormatsOf(Keywords(), "Line=\"" + std::to_string(preamble + 1) + "\" Delimiters=\"Other,\" Other=\"" +
                                  (delimiter == "\t" ? "&#9;" : delimiter) + "\" Qualifier=\"0\"");
  }

  std::string Kind() const { return std::string(type_->name); }
  const std::string& Format() const { return format_; }
  const std::string& Text() const { return text_; }

 private:
  bool Chance(int of) { return random_() % static_cast<unsigned>(of) == 0; }
  char Pick(std::string_view from) { return from[random_() % from.size()]; }
  std::string Of(std::initializer_list<const char*> texts) {
    return *(texts.begin() + random_() % texts.size());
  }

  void ChooseColumns() {
    for (const KindColumn& known : AllColumns(*type_))
      if (known.column->IsRead() && !known.column->keyword.ends_with(' ')) columns_.push_back(known);
    std::shuffle(columns_.begin(), columns_.end(), random_);
    columns_.resize(std::min<std::size_t>(columns_.size(), 2 + random_() % 9));
    // A part without a name is none.
    std::erase_if(columns_, [](const KindColumn& known) { return known.column->keyword == "PartName"; });
    if (type_->name == "parts")
      columns_.insert(columns_.begin() + static_cast<int>(random_() % (columns_.size() + 1)),
                      AllColumns(*type_)[0]);
  }

  std::string Keywords() const {
    std::string keywords;
    for (const KindColumn& known : columns_)
      keywords.append(keywords.empty() ? "" : ",").append(known.column->keyword);
    std::erase(keywords, '/');  // as format files spell them
    return keywords;
  }

  // Keywords, what they may be called, words that say little, or numbers of columns.
  std::vector<std::string> Headings() {
    std::vector<std::string> headings;
    const auto style = random_() % 5;
    for (std::size_t index = 0; index < columns_.size(); ++index) {
      const std::string keyword(columns_[index].column->keyword);
      headings.push_back(style == 0   ? keyword
                         : style == 1 ? std::to_string(index + 1)
                         : style == 2 ? Everyday(keyword)
                         : style == 3 ? (Chance(2) ? Everyday(keyword) : Vague())
                                      : Vague());
    }
    return headings;
  }

  // One of them may be the name of another column, as people are; two that have changed places are a fault.
  std::string Vague() {
    if (Chance(8) && !std::exchange(isMisled_, true))
      return Of({"Name", "Code", "Bezeichnung", "Description", "Kommentar", "Nummer", "Größe", "X", "Typ"});
    return Of({"Text", "Info", "Ref", "Bez.", "Spalte", "Feld 1", "Wert", "Art", "品名", "Désignation", "",
               "Datum"});
  }

  std::string Everyday(const std::string& keyword) {
    static const auto kNames = ReadTable("cli/tables/everyday-headings.table");
    for (const auto& row : kNames)
      if (row[0] == keyword)
        return row[1 + random_() %
                           static_cast<std::size_t>(std::find(row.begin(), row.end(), "") - row.begin() - 1)];
    return Vague();
  }

  std::string Cell(const KindColumn& known) {
    const FieldColumn& column = *known.column;
    if (column.readWords != nullptr)
      return std::string(column.readWords->words[random_() % column.readWords->words.size()].text);
    if (column.readAs == CellForm::Whole) return std::to_string(random_() % 1000);
    if (column.readAs == CellForm::Real) return std::to_string(random_() % 300) + Of({"", ".5", ".25", ".0"});
    if (Chance(6) && column.keyword != "PartName") return "";
    if (isNumeric_[&known - columns_.data()]) return std::to_string(100000 + random_() % 900000);
    return Of({"Halter", "Bügel 3", "10-4711", "SUS304", "2026-12-01", "4711", "Müller GmbH", "St 37", "0012",
               "A", "板金", "C:/cad/x.dxf", "1.4301", "Ø 12", "x y z", "12mm"});
  }

  std::vector<std::string> Row() {
    if (isNumeric_.empty())
      for (std::size_t index = 0; index < columns_.size(); ++index) isNumeric_.push_back(Chance(4));
    std::vector<std::string> row;
    for (const KindColumn& known : columns_) row.push_back(Cell(known));
    return row;
  }

  void AddLine(const std::vector<std::string>& cells, const std::string& delimiter, bool isWrapped) {
    for (std::size_t index = 0; index < cells.size(); ++index)
      text_ += (index > 0 ? delimiter : "") + (isWrapped ? "\"" + cells[index] + "\"" : cells[index]);
    text_ += "\n";
  }

  std::mt19937& random_;
  bool isMisled_ = false;
  const RecordType* type_;
  std::vector<KindColumn> columns_;
  std::vector<char> isNumeric_;  // columns of texts that are all numbers
  std::string format_, text_;
};

// With --gtest_shuffle, the files are others each time.
TEST(Suggestions, AreNoneForFilesThatFitTheirFormat) {
  const TemporaryFolder folder;
  std::mt19937 random(static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()));
  for (int round = 0; round < 300; ++round) {
    const GoodFile file(random);
    folder.Write("AssemblyFormats.xml", file.Format());
    const Outcome check = RunOn({"--encoding", "utf-8", "check", "--kind", file.Kind(), "--as", "json",
                                 folder.Write("a.txt", file.Text())});
    const Json report = Json::parse(check.out);
    EXPECT_EQ(Suggested(report), "") << file.Kind() << "\n" << file.Format() << "\n" << file.Text();
  }
}

}  // namespace
}  // namespace qv
