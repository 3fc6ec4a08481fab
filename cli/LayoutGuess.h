#pragma once

#include "format/OptionForm.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// What separates the fields of a line.
struct Layout {
  std::string delimiters;
  char qualifier = '\0';  ///< NUL where there is none
  bool treatAsOne = false;
};

/// How a text file of this name is split with the format: a .csv file always has commas and double quotes.
Layout LayoutOf(const OptionForm& form, bool isCsv);

/// The line's fields without blanks and double quotes around them, by the plain rules; what the odd cases of
/// the library's own splitting come to does not matter where a whole file is looked at.
std::vector<std::string> PlainFields(std::string_view line, const Layout& layout);

/// Whether the line gives every one of so many columns a field; an empty last one may be missing, and empty
/// ones may follow.
bool Fills(std::string_view line, const Layout& layout, std::size_t columns);

/// How many fields most rows have, and how many rows have so many.
struct Width {
  std::size_t fields = 0;
  std::size_t rows = 0;
};
Width UsualWidth(const std::vector<std::string_view>& rows, const Layout& layout);

/// The start of a file.
struct LayoutSample {
  std::string_view header;
  std::vector<std::string_view> rows;
  std::size_t columns;  ///< of the format
  bool hasMisfits;      ///< an import complained of a row's fields or qualifiers, anywhere in the file
};

/// What is said of lines that another layout fits better than the format's.
struct LayoutGuess {
  std::string code;     ///< empty: there is nothing to say
  std::string message;  ///< a sentence for a person
};

/// A layout that fits the rows where the format's does not, told only when they and their header leave no
/// doubt.
LayoutGuess GuessLayout(LayoutSample start, const OptionForm& form, bool isCsv);

}  // namespace qv
