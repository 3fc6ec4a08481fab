#pragma once

#include <concepts>
#include <string>
#include <string_view>

/// What sentences for a person are made of.
namespace qv {

/// "1 field", "2 fields".
template <std::integral Number>
std::string Counted(Number count, std::string_view what) {
  return std::to_string(count).append(" ").append(what).append(count == 1 ? "" : "s");
}

/// A text, such as a cell, that may be long: cut after 60 bytes, at the end of a UTF-8 character, with "..."
/// for the rest.
std::string Brief(std::string_view text);

/// The text between double quotes.
std::string Quoted(std::string_view text);

inline std::string QuotedBriefly(std::string_view text) { return Quoted(Brief(text)); }

}  // namespace qv
