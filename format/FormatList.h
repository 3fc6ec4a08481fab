#pragma once

#include "format/OptionForm.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The formats of one configuration, in file order, and the name of the current one (which need not exist).
struct FormatList {
  std::string CurrentFormat;
  std::vector<OptionForm> Formats;
};

/// Copies the first format called exactly `name` into `record` and returns true; leaves `record` alone
/// otherwise.
bool FindFormat(const FormatList& list, std::string_view name, OptionForm& record);

/// Puts a copy of `*record` in the place of the format of the same name, or at the end. False for null.
bool AddFormat(FormatList& list, const OptionForm* record);

/// The column keywords of a part list, in the order in which formats are completed with them.
extern const std::array<std::string_view, 33> DefaultHeaderKeywords;

/// Appends an item of order "-1" for every known column keyword that no item of the format bears.
void CompleteWithKeywords(OptionForm& form);
