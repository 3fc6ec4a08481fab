#pragma once

#include <string>
#include <string_view>

namespace qv {

/// Reads a key of a profile (INI) file; empty when file, section or key is missing. At most 1,023 characters.
std::string ReadProfileText(const std::string& path, const char* section, const char* key);

/// Writes a key, keeping everything else in the file. False on failure, and for a value that would tear the
/// file: one with a line end or a NUL character.
bool WriteProfileText(const std::string& path, const char* section, const char* key,
                      const std::string& value);

/// The folder in which programs keep what each user has set, with a separator at its end. Empty where
/// settings lie beside the program instead (Windows), and where the user has no home.
std::string UserSettingsFolder();

// A reader strips white space and one pair of quotation marks, so a text that has its own gets a pair around.
bool IsQuotedProfileText(std::string_view value);

/// The platform's part of WriteProfileText(), for a value that is quoted as it must be.
bool PutProfileText(const std::string& path, const char* section, const char* key, const std::string& value);

}  // namespace qv
