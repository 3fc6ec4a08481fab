#pragma once

#include <string_view>

/// Letters, digits and white space of ASCII, whatever the locale. Bytes of 0x80 and above are none of them.
namespace qv {

constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// What the C library's isspace takes in the classic locale.
constexpr bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The text without the white space at its start.
std::string_view SkipSpace(std::string_view text);

bool EqualsIgnoringCase(std::string_view left, std::string_view right);

bool StartsWithIgnoringCase(std::string_view text, std::string_view start);

bool EndsWithIgnoringCase(std::string_view text, std::string_view end);

}  // namespace qv
