#pragma once

#include "engines/columns/RecordFields.h"
#include "format/Delimiters.h"
#include "format/OptionForm.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// The lines of a file's start, without their line ends and at most 1,000; unless `isWhole`, without a last
/// one that the start cuts.
std::vector<std::string_view> SampleLines(std::string_view bytes, bool isWhole);

/// How a text file of this name is split with the format: a .csv file always has commas and double quotes.
SplitRules LayoutOf(const OptionForm& form, bool isCsv);

/// The line's fields without blanks and double quotes around them, by the plain rules; what the odd cases of
/// the library's own splitting come to does not matter where a whole file is looked at.
std::vector<std::string> PlainFields(std::string_view line, const SplitRules& layout);

/// Whether the line has a field for each column; an empty last one may be missing, empty ones may follow.
bool Fills(std::string_view line, const SplitRules& layout, std::size_t columns);

/// How many fields most rows have, and how many rows have so many.
struct Width {
  std::size_t fields = 0;
  std::size_t rows = 0;
};
Width UsualWidth(const std::vector<std::string_view>& rows, const SplitRules& layout);

/// The start of a file.
struct LayoutSample {
  std::string_view header;
  std::vector<std::string_view> rows;
  std::size_t columns;  ///< of the format
  bool hasMisfits;      ///< an import complained of a row's fields or qualifiers, anywhere in the file
};

/// What is said of lines that another layout fits better than the format's.
struct LayoutGuess {
  std::string code;                  ///< empty: there is nothing to say
  std::string message;               ///< a sentence for a person
  std::optional<SplitRules> layout;  ///< the other one, where a format can name it for such a file
};

/// A layout that fits where the format's does not, only when the rows and their header leave no doubt.
LayoutGuess GuessLayout(LayoutSample start, const OptionForm& form, bool isCsv);

/// Which of a file's first rows surely is the header row instead of the one at `header`: it has three
/// headings of the kind's columns or more, and at least twice as many as the other one.
std::optional<std::size_t> GuessHeaderRow(const std::vector<std::vector<std::string>>& rows,
                                          std::size_t header, const RecordType& type);

/// A layout for a file that no format is known for.
struct LayoutProposal {
  char delimiter = '\0';              ///< NUL: none splits the lines
  char qualifier = '"';               ///< NUL: none
  std::size_t headerLine = 1;         ///< counted from 1
  std::vector<std::string> headings;  ///< the fields of that line
};

/// Takes the layout that makes the most headings of the kind's columns out of a line and the most rows of its
/// width below. The lines are UTF-8.
LayoutProposal ProposeLayout(const std::vector<std::string_view>& lines, const RecordType& type);

}  // namespace qv
