#include "text/Utf8.h"

namespace qv {
namespace {

// What may follow a lead byte: the range of the second byte rules out overlong forms, surrogates and
// everything behind U+10FFFF.
struct Lead {
  unsigned char first, last;  // lead bytes
  int following;
  unsigned char low, high;  // the second byte
  unsigned char mask;       // the lead byte's share of the character
};

constexpr Lead kLeads[] = {
    {0x00, 0x7F, 0, 0x00, 0x00, 0x7F}, {0xC2, 0xDF, 1, 0x80, 0xBF, 0x1F}, {0xE0, 0xE0, 2, 0xA0, 0xBF, 0x0F},
    {0xE1, 0xEC, 2, 0x80, 0xBF, 0x0F}, {0xED, 0xED, 2, 0x80, 0x9F, 0x0F}, {0xEE, 0xEF, 2, 0x80, 0xBF, 0x0F},
    {0xF0, 0xF0, 3, 0x90, 0xBF, 0x07}, {0xF1, 0xF3, 3, 0x80, 0xBF, 0x07}, {0xF4, 0xF4, 3, 0x80, 0x8F, 0x07},
};

const Lead* FindLead(unsigned char byte) {
  for (const Lead& lead : kLeads) {
    if (byte >= lead.first && byte <= lead.last) return &lead;
  }
  return nullptr;
}

}  // namespace

Utf8Character DecodeUtf8(std::string_view text) {
  const auto byteAt = [text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const Lead* lead = FindLead(byteAt(0));
  if (lead == nullptr) return {kIllFormed, 1};
  char32_t code = byteAt(0) & lead->mask;
  const std::size_t length = static_cast<std::size_t>(lead->following) + 1;
  for (std::size_t index = 1; index < length; ++index) {
    const unsigned char low = index == 1 ? lead->low : 0x80;
    const unsigned char high = index == 1 ? lead->high : 0xBF;
    if (index >= text.size() || byteAt(index) < low || byteAt(index) > high) return {kIllFormed, index};
    code = (code << 6) | (byteAt(index) & 0x3F);
  }
  return {code, length};
}

}  // namespace qv
