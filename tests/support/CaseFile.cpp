#include "support/CaseFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
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
  std::string out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\' || at + 1 == text.size()) {
      out += text[at];
      continue;
    }
    const char escape = text[++at];
    if (escape == 't') {
      out += '\t';
    } else if (escape == 'r') {
      out += '\r';
    } else if (escape == '0') {
      out += '\0';
    } else if (escape == 'x') {
      out += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
      at += 2;
    } else {
      out += escape;
    }
  }
  return out;
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

std::string TestCase::Text(const std::string& section) const {
  std::string text;
  for (const std::string& line : Lines(section)) {
    const bool isOpen = line.size() >= 2 && line.compare(line.size() - 2, 2, "\\c") == 0;
    text += isOpen ? Unescaped(line.substr(0, line.size() - 2)) : Unescaped(line) + "\n";
  }
  return text;
}

std::vector<TestCase> ReadTestCases(const std::string& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".case") paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  std::vector<TestCase> cases;
  for (const auto& path : paths) {
    const std::vector<TestCase> more = Reader(path).Read();
    cases.insert(cases.end(), more.begin(), more.end());
  }
  return cases;
}
