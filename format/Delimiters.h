#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace qv {

/// The delimiters that a format can name, in the order in which it names them.
enum class Delimiter { Tab, Semicolon, Comma, Space, Other };

inline constexpr std::array<std::string_view, 5> kDelimiterNames = {"Tab", "Semicolon", "Comma", "Space",
                                                                    "Other"};

/// The character of each; "Other" stands for the format's own characters.
inline constexpr std::string_view kDelimiterCharacters = "\t;, ";

/// Whether a format's text of delimiter names has this one, anywhere and exactly so.
inline bool HasDelimiter(std::string_view names, Delimiter delimiter) {
  return names.find(kDelimiterNames[static_cast<std::size_t>(delimiter)]) != std::string_view::npos;
}

/// All characters that separate fields when a file is read. `other` is what "Other" stands for.
std::string DelimitersRead(std::string_view names, std::string_view other);

/// The one character that an export writes: the first of Comma, Semicolon, Tab, Space and Other that is
/// named; NUL when none is, or when "Other" stands for nothing.
char DelimiterWritten(std::string_view names, std::string_view other);

/// The rules by which a line is split into fields.
struct SplitRules {
  std::string delimiters;   ///< each of these characters ends a field
  char qualifier = '\0';    ///< around fields that hold delimiters; NUL: there is none
  bool treatAsOne = false;  ///< consecutive delimiters count as one
  bool isCsv = false;       ///< by the rules of .csv files

  static SplitRules Csv() { return {",", '"', false, true}; }
};

/// The rules of a format for .txt files; `qualifier` is its number.
SplitRules SplitRulesOf(std::string_view names, std::string_view other, int qualifier, bool treatAsOne);

}  // namespace qv
