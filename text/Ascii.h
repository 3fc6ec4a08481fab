#pragma once

#include <algorithm>
#include <string_view>

/// Letters, digits and white space of ASCII, whatever the locale. Bytes of 0x80 and above are none of them.
namespace qv {

constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// What the C library's isspace takes in the classic locale.
constexpr bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The text without the white space at its start.
inline std::string_view SkipSpace(std::string_view text) {
  text.remove_prefix(
      static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsSpace) - text.begin()));
  return text;
}

inline bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [](char a, char b) { return ToLower(a) == ToLower(b); });
}

inline bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

inline bool EndsWithIgnoringCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && EqualsIgnoringCase(text.substr(text.size() - end.size()), end);
}

}  // namespace qv
