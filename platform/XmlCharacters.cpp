#include "platform/XmlCharacters.h"

#include "platform/Utf8.h"

namespace qv {
namespace {

struct Range {
  char32_t first, last;
};

constexpr Range kCharacters[] = {
    {0x9, 0xA}, {0xD, 0xD}, {0x20, 0xD7FF}, {0xE000, 0xFFFD}, {0x10000, 0x10FFFF}};

constexpr Range kNameStart[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

// What a name may go on with besides the characters that may start one.
constexpr Range kNameMore[] = {{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t Count>
bool Contains(const Range (&ranges)[Count], char32_t code) {
  for (const Range& range : ranges) {
    if (code >= range.first && code <= range.last) return true;
  }
  return false;
}

}  // namespace

bool IsXmlCharacter(char32_t code) { return Contains(kCharacters, code); }

bool IsXmlText(std::string_view text) {
  while (!text.empty()) {
    const Utf8Character character = DecodeUtf8(text);
    if (!IsXmlCharacter(character.code)) return false;
    text.remove_prefix(character.length);
  }
  return true;
}

std::size_t XmlNameLength(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size()) {
    const Utf8Character character = DecodeUtf8(text.substr(length));
    const bool fits =
        Contains(kNameStart, character.code) || (length > 0 && Contains(kNameMore, character.code));
    if (!fits) break;
    length += character.length;
  }
  return length;
}

bool IsXmlName(std::string_view text) { return !text.empty() && XmlNameLength(text) == text.size(); }

}  // namespace qv
