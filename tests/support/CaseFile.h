#pragma once

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

/// Readable test cases: settings, then sections of lines.
///
///     # Why this file exists.
///     key: value                    for all cases of the file
///     === name of a case
///     key: value                    for this case
///     --- section
///     lines
///
/// In sections and settings \{x*300} stands for 300 times x. Texts also know \t, \r, \0, \\ and \xHH, and \c
/// at the end of a line takes its line end away.
struct TestCase {
  std::string file;
  int lineNumber = 0;
  std::string name;
  std::map<std::string, std::string> settings;
  std::map<std::string, std::vector<std::string>> sections;

  bool Has(const std::string& section) const { return sections.count(section) != 0; }
  std::string Setting(const std::string& key, const std::string& otherwise) const;

  /// The section's lines as they stand, repetitions expanded.
  std::vector<std::string> Lines(const std::string& section) const;
  /// The section's lines with all escapes replaced.
  std::vector<std::string> Texts(const std::string& section) const;
  /// The section's lines as rows of cells; an empty line has none.
  std::vector<std::vector<std::string>> Rows(const std::string& section) const;
  /// The section's lines with all escapes replaced, as one text, each with a line feed.
  std::string Text(const std::string& section) const;
};

/// How a test's output shows a case.
inline void PrintTo(const TestCase& c, std::ostream* out) { *out << c.file << ": " << c.name; }

/// The path of a file or folder of the tests: "cases/odd".
std::string TestFile(const std::string& path);

/// All cases of all *.case files in a folder of the tests, by file name.
std::vector<TestCase> ReadTestCases(const std::string& folder);

/// What stands between the bars of a line, without the blanks around it, with all escapes replaced; \n is a
/// line feed too, \s a blank and \b a bar.
std::vector<std::string> CellsOf(const std::string& line);

/// The rows of a table file of the tests, all as wide as the widest. Empty lines and those that start with #
/// are no rows.
std::vector<std::vector<std::string>> ReadTable(const std::string& path);

/// The case's name as GoogleTest takes it.
std::string NameOfCase(const testing::TestParamInfo<TestCase>& info);

/// Whether the text is as the pattern says, in which {*} stands for any text.
bool MatchesPattern(std::string_view text, std::string_view pattern);
