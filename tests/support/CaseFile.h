#pragma once

#include <map>
#include <ostream>
#include <string>
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
  /// The same as one text, each line with a line feed.
  std::string Text(const std::string& section) const;
};

/// How a test's output shows a case.
inline void PrintTo(const TestCase& c, std::ostream* out) { *out << c.file << ": " << c.name; }

/// All cases of all *.case files in a folder, by file name.
std::vector<TestCase> ReadTestCases(const std::string& folder);
