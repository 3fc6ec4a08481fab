#pragma once

#include "format/OptionForm.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qv {

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

/// The format that the option dialog would store for the same choices, then with the orders that were set.
/// Throws UsageError for what cannot be.
OptionForm BuildFormat(const FormatWishes& wishes);

/// The entries of a list with commas between them.
std::vector<std::string> SplitList(const std::string& list);

}  // namespace qv
