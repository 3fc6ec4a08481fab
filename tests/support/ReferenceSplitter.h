#pragma once

#include <string>
#include <vector>

/// The splitting rules one character at a time, with no thought of speed: what the fast splitter is held
/// against.
namespace reference {

struct Rules {
  bool csv = false;
  bool qualified = true;
  char qualifier = '"';
  std::string delimiters;
  bool treatAsOne = false;
};

inline std::string Trimmed(std::string field) {
  while (!field.empty() && field.front() == ' ') field.erase(0, 1);
  while (!field.empty() && field.back() == ' ') field.pop_back();
  if (!field.empty() && field.front() == '"') field.erase(0, 1);
  if (!field.empty() && field.back() == '"') field.pop_back();
  return field;
}

inline std::vector<std::string> SplitCsv(const std::string& line) {
  std::vector<std::string> fields;
  std::string field;
  bool inside = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"' && !inside) {
      inside = true;
    } else if (c == '"' && i + 1 < line.size() && line[i + 1] == ',') {
      fields.push_back(field);
      field.clear();
      inside = false;
      ++i;
    } else if (c == ',' && !inside) {
      if (Trimmed(field) != "\"") fields.push_back(Trimmed(field));
      field.clear();
    } else {
      field += c;
    }
  }
  field = Trimmed(field);
  if (!field.empty() && field != "CRLF" && field != "\"") fields.push_back(field);
  return fields;
}

inline std::vector<std::string> SplitText(const Rules& rules, const std::string& line) {
  const auto isDelimiter = [&](char c) { return rules.delimiters.find(c) != std::string::npos; };
  std::vector<std::string> fields;
  std::string field;
  bool inside = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (rules.qualified && c == rules.qualifier) {
      const char next = i + 1 < line.size() ? line[i + 1] : '\0';
      if (!inside) {
        inside = true;
      } else if (next == '\0' || next == rules.qualifier || isDelimiter(next)) {
        if (Trimmed(field) != "\"") fields.push_back(Trimmed(field));
        field.clear();
        inside = false;
        ++i;
      } else {
        field += c;
      }
    } else if (isDelimiter(c) && !inside) {
      if (!field.empty() && Trimmed(field) != "\"") fields.push_back(Trimmed(field));
      if (field.empty() && !rules.treatAsOne) fields.emplace_back();
      field.clear();
    } else {
      field += c;
    }
  }
  field = Trimmed(field);
  if (!field.empty() && (!rules.qualified || field != "\"")) fields.push_back(field);
  return fields;
}

inline std::vector<std::string> Split(const Rules& rules, const std::string& line) {
  return rules.csv ? SplitCsv(line) : SplitText(rules, line);
}

}  // namespace reference
