#pragma once

#include <string>

namespace qv {

/// Reads a key of a profile (INI) file; empty when file, section or key is missing. At most 1,023 characters.
std::string ReadProfileText(const std::string& path, const char* section, const char* key);

/// Writes a key, keeping everything else in the file. False on failure.
bool WriteProfileText(const std::string& path, const char* section, const char* key,
                      const std::string& value);

}  // namespace qv
