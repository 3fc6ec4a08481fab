#pragma once

#include "cli/DataFile.h"
#include "cli/TextCoding.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// The cells of a column of numbers that had text after the number.
struct TrailingTexts {
  std::int64_t count = 0;
  bool areReal = true;   ///< all are numbers with a decimal comma
  bool areWhole = true;  ///< all are such whole numbers

  void Add(std::string_view text);
};

/// What all of a file's rows have shown.
struct RowFindings {
  std::int64_t rows = 0;
  bool hasMisfits = false;                             ///< some did not fit the format's columns
  std::map<std::string, TrailingTexts> trailingTexts;  ///< by column, in UTF-8
};

/// What would help a data file that does not fit its format, where it is certain: another delimiter, another
/// header line, the keyword that was meant. Looks at the start of the file only, whatever its length.
std::vector<Utf8Diagnostic> Suggestions(const DataFile& file, const DataStart& start,
                                        const RowFindings& findings, const TextCoding& coding);

/// What is told of a file that is no text as data files are: a picture, an archive, UTF-16, lines with CR
/// alone.
std::optional<Utf8Diagnostic> OtherShapeOf(const DataStart& start);

/// The same of the encoding of a text file alone, when it is beyond doubt.
std::optional<Utf8Diagnostic> SureEncodingOf(const DataStart& start, const TextCoding& coding);

}  // namespace qv
