#include "support/CaseFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace {

std::string ExpandRepetitions(const std::string& text) {
  std::string out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t end = text.compare(at, 2, "\\{") == 0 ? text.find('}', at) : std::string::npos;
    if (end == std::string::npos) {
      out += text[at];
      continue;
    }
    const std::size_t star = text.find('*', at);
    const std::string unit = text.substr(at + 2, star - at - 2);
    for (int count = std::stoi(text.substr(star + 1, end - star - 1)); count > 0; --count) out += unit;
    at = end;
  }
  return out;
}

std::string Unescaped(const std::string& text) {
  static const std::map<char, char> kEscapes = {{'t', '\t'}, {'r', '\r'}, {'n', '\n'},
                                                {'0', '\0'}, {'s', ' '},  {'b', '|'}};
  std::string out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\' || at + 1 == text.size()) {
      out += text[at];
    } else if (text[++at] == 'x') {
      out += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
      at += 2;
    } else {
      const auto escape = kEscapes.find(text[at]);
      out += escape == kEscapes.end() ? text[at] : escape->second;
    }
  }
  return out;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

class Reader {
 public:
  explicit Reader(const std::filesystem::path& path) : path_(path) {}

  std::vector<TestCase> Read() {
    std::ifstream file(path_, std::ios::binary);
    std::string line;
    for (number_ = 1; std::getline(file, line); ++number_) Take(line);
    for (TestCase& c : cases_)
      for (auto& [name, lines] : c.sections) DropSeparator(name, lines);
    return cases_;
  }

 private:
  void Take(const std::string& line) {
    if (line.rfind("=== ", 0) == 0) {
      cases_.push_back({path_.filename().string(), number_, line.substr(4), defaults_, {}});
      section_.clear();
    } else if (line.rfind("--- ", 0) == 0 && !cases_.empty()) {
      section_ = line.substr(4);
      cases_.back().sections[section_];
    } else if (!section_.empty()) {
      cases_.back().sections[section_].push_back(line);
    } else if (!line.empty() && line[0] != '#') {
      const std::size_t colon = line.find(':');
      if (colon == std::string::npos) throw std::runtime_error(path_.string() + ": no setting: " + line);
      auto& settings = cases_.empty() ? defaults_ : cases_.back().settings;
      settings[line.substr(0, colon)] = line.substr(std::min(colon + 2, line.size()));
    }
  }

  // The blank line before the next case belongs to neither. An input keeps its blank lines: it never comes
  // last.
  static void DropSeparator(const std::string& section, std::vector<std::string>& lines) {
    if (section != "input" && !lines.empty() && lines.back().empty()) lines.pop_back();
  }

  std::filesystem::path path_;
  int number_ = 0;
  std::map<std::string, std::string> defaults_;
  std::vector<TestCase> cases_;
  std::string section_;
};

}  // namespace

std::string TestCase::Setting(const std::string& key, const std::string& otherwise) const {
  const auto found = settings.find(key);
  return found == settings.end() ? otherwise : found->second;
}

std::vector<std::string> TestCase::Lines(const std::string& section) const {
  std::vector<std::string> lines;
  if (const auto found = sections.find(section); found != sections.end())
    for (const std::string& line : found->second) lines.push_back(ExpandRepetitions(line));
  return lines;
}

std::vector<std::string> TestCase::Texts(const std::string& section) const {
  std::vector<std::string> texts = Lines(section);
  std::transform(texts.begin(), texts.end(), texts.begin(), Unescaped);
  return texts;
}

std::vector<std::vector<std::string>> TestCase::Rows(const std::string& section) const {
  std::vector<std::vector<std::string>> rows;
  if (const auto found = sections.find(section); found != sections.end())
    for (const std::string& line : found->second)
      rows.push_back(line.empty() ? std::vector<std::string>() : CellsOf(line));
  return rows;
}

std::string TestCase::Text(const std::string& section) const {
  std::string text;
  for (const std::string& line : Lines(section)) {
    const bool isOpen = line.size() >= 2 && line.compare(line.size() - 2, 2, "\\c") == 0;
    text += isOpen ? Unescaped(line.substr(0, line.size() - 2)) : Unescaped(line) + "\n";
  }
  return text;
}

std::string TestFile(const std::string& path) { return QV_TESTS "/" + path; }

std::vector<TestCase> ReadTestCases(const std::string& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(TestFile(folder)))
    if (entry.path().extension() == ".case") paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  std::vector<TestCase> cases;
  for (const auto& path : paths) {
    const std::vector<TestCase> more = Reader(path).Read();
    cases.insert(cases.end(), more.begin(), more.end());
  }
  return cases;
}

std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream stream(line + '|');
  for (std::string cell; std::getline(stream, cell, '|');)
    cells.push_back(Unescaped(ExpandRepetitions(Trimmed(cell))));
  return cells;
}

std::vector<std::vector<std::string>> ReadTable(const std::string& path) {
  std::vector<std::vector<std::string>> rows;
  std::ifstream file(TestFile(path), std::ios::binary);
  for (std::string line; std::getline(file, line);)
    if (!line.empty() && line[0] != '#') rows.push_back(CellsOf(line));
  if (rows.empty()) throw std::runtime_error(path + ": no rows");
  std::size_t width = 0;
  for (const auto& row : rows) width = std::max(width, row.size());
  for (auto& row : rows) row.resize(width);
  return rows;
}

std::string NameOfCase(const testing::TestParamInfo<TestCase>& info) {
  std::string name = info.param.file + "_" + std::to_string(info.param.lineNumber) + "_" + info.param.name;
  const auto isOdd = [](unsigned char c) { return c >= 0x80 || std::isalnum(c) == 0; };
  std::replace_if(name.begin(), name.end(), isOdd, '_');
  return name;
}

bool MatchesPattern(std::string_view text, std::string_view pattern) {
  constexpr std::string_view kAny = "{*}";
  const std::size_t any = pattern.find(kAny);
  if (any == std::string_view::npos) return text == pattern;
  if (!text.starts_with(pattern.substr(0, any))) return false;
  text.remove_prefix(any);
  pattern.remove_prefix(any + kAny.size());
  for (std::size_t skipped = 0; skipped <= text.size(); ++skipped)
    if (MatchesPattern(text.substr(skipped), pattern)) return true;
  return false;
}
