#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv {

inline constexpr unsigned kAnsiCodePage = 0;  // the process's own
inline constexpr unsigned kUtf8CodePage = 65001;

/// Text of a code page as UTF-16, a byte that does not decode becoming U+FFFD.
std::wstring Widen(std::string_view text, unsigned codePage = kAnsiCodePage);

/// UTF-16 as text of a code page; each character that the code page cannot hold becomes "?", never a
/// look-alike.
std::string Narrow(std::wstring_view wide, unsigned codePage = kAnsiCodePage);

/// UTF-16 as text of the process's code page; nothing when that cannot hold all of it.
std::optional<std::string> NarrowWhole(std::wstring_view wide);

/// The system's words for an error number, for a person.
std::string SystemReason(unsigned long error);

}  // namespace qv
