#pragma once

#include <cstddef>
#include <string_view>

namespace qv {

/// Whether XML 1.0 can carry the character, written out or as a reference.
bool IsXmlCharacter(char32_t code);

/// Whether `text` is well-formed UTF-8 of characters that XML can carry.
bool IsXmlText(std::string_view text);

/// The length of the name at the front of `text`; 0 when there is none.
std::size_t XmlNameLength(std::string_view text);

/// Whether all of `text` is one name.
bool IsXmlName(std::string_view text);

inline bool IsXmlSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

}  // namespace qv
