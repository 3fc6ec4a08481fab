#pragma once

#include "format/OptionForm.h"

#include <string>
#include <string_view>
#include <vector>

/// What the start of a data file says. Nothing more than its first block, or of a workbook than one row, is
/// read. A file that cannot be read, or is of no supported type, says nothing and is reported.
namespace qv {

/// The format name that the data file carries, as it is, whether or not any configuration holds a
/// format of that name; empty when it carries none.
std::string StoredFormatName(const char* path);

/// The same of a text file that starts with these bytes.
std::string FormatNameIn(std::string_view bytes);

/// A stored format name as hosts get it: "%%" stands for "%", any other directive finds no argument and gives
/// nothing.
std::string ExpandFormatName(std::string_view stored);

/// The fields of the header row as the format reads it.
std::vector<std::string> ReadHeaders(const OptionForm& form, const char* path);

}  // namespace qv
