#pragma once

#include "cli/DataStart.h"
#include "engines/columns/RecordFields.h"
#include "format/OptionForm.h"

#include <optional>
#include <string>
#include <vector>

namespace qv {

struct Session;

/// What a user says of a format. All texts are UTF-8.
struct FormatWishes {
  std::string name;
  std::optional<int> startLine;           ///< else 2
  std::optional<std::string> delimiters;  ///< else Tab,Comma
  std::string otherDelimiters;
  std::optional<std::string> qualifier;  ///< else double
  bool treatAsOne = false;
  std::string partKey = "Name";
  std::string columns;                ///< keywords with commas between them
  std::vector<std::string> settings;  ///< "KEYWORD=ORDER"
};

/// What the option dialog would store for the same choices, then with the orders that were set. Throws
/// UsageError.
OptionForm BuildFormat(const FormatWishes& wishes);

/// Completes what a user says of a format by what the data file shows: delimiter, qualifier, header line, and
/// as columns the keywords that its headings surely mean. What the user says wins. Returns the headings.
/// Throws FileError when the file cannot be read or has no header row.
std::vector<std::string> CompleteFromHeaders(FormatWishes& wishes, const Utf8Path& file,
                                             const RecordType& type, Session& session);

/// The entries of a list with commas between them.
std::vector<std::string> SplitList(const std::string& list);

}  // namespace qv
