#include "cli/RunProgram.h"
#include "platform/FileSystem.h"
#include "support/CaseFile.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

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

std::string FormatText(const std::string& columns, const std::string& attributes) {
  const auto either = [&](const std::string& key, const char* value) {
    return attributes.find(key) == std::string::npos ? " " + key + "=\"" + value + "\"" : std::string();
  };
  std::string items;
  std::istringstream keywords(columns);
  for (auto [keyword, rank] = std::pair(std::string(), 0); std::getline(keywords, keyword, ','); ++rank)
    items += "<" + keyword + " Order=\"" + std::to_string(rank) + "\"/>";
  return "<CSVOptionSetting Current=\"f\"><OptionForm Name=\"f\"" + either("Line", "1") +
         either("Delimiters", "Tab,") + either("Qualifier", "2") + " " + attributes + ">" + items +
         "</OptionForm></CSVOptionSetting>";
}

TEST(Suggestions, AreThoseOfTheTable) {
  const TemporaryFolder folder;
  for (const auto& row : ReadTable("cli/tables/suggestions.table")) {
    if (row[5] == "posix" && kEndOfText >= 0) continue;
    folder.Write("AssemblyFormats.xml", FormatText(row[1], row[2]));
    const Outcome check = RunOn(
        {"--encoding", "utf-8", "check", "--kind", row[0], "--as", "json", folder.Write("a.txt", row[3])});
    const Json report = Json::parse(check.out);
    std::string messages;
    for (const Json& suggestion : report["suggestions"])
      messages += (messages.empty() ? "" : "; ") + suggestion["message"].get<std::string>();
    EXPECT_TRUE(MatchesPattern(messages, row[4])) << row[1] << "\n" << row[3] << "\n" << messages;
  }
}

}  // namespace
}  // namespace qv
