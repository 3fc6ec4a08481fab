#pragma once

#include <string>
#include <string_view>

namespace qv {

/// The text of a profile with one key set. Every other byte stays as it was: the file is the host's, and
/// holds comments and lines of which we know nothing. A missing key goes behind its section's last line, a
/// missing section to the end.
std::string SetProfileKey(std::string_view text, std::string_view section, std::string_view key,
                          std::string_view value);

}  // namespace qv
