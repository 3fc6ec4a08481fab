#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv {

/// The line by which a data file says which format it was written with: [FMT_Name=Form1].
std::string FormatNameLine(std::string_view name);

/// Whether a first line is one.
bool IsFormatNameLine(std::string_view line);

/// The name in such a line; nothing where there is none.
std::optional<std::string_view> NameInLine(std::string_view line);

/// Sets `name` to the format name in the first line of the file; leaves it alone where there is none.
void ReadStoredFormatName(std::string& name, const char* path);

/// Makes the file carry the name in its first line. The file is replaced as a whole or left as it is.
void WriteStoredFormatName(const char* name, const char* path);

}  // namespace qv
