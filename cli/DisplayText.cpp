#include "cli/DisplayText.h"

#include "cli/CharacterWidths.h"

#include <algorithm>

namespace qv {
namespace {

constexpr std::string_view kEllipsis = "\u2026";
constexpr std::string_view kReplacement = "\uFFFD";

struct Character {
  char32_t code = 0;
  std::size_t length = 1;
};

/// The first character of a text that is well formed, as all text in this program is once decoded.
Character FirstOf(std::string_view utf8) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(utf8[at]); };
  const unsigned char lead = byte(0);
  const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length == 1 || length > utf8.size()) return {lead, 1};
  char32_t code = lead & (0xFFu >> (length + 1));
  for (std::size_t at = 1; at < length; ++at) code = code << 6 | (byte(at) & 0x3Fu);
  return {code, length};
}

// Marks and overrides of writing direction, line and paragraph separators, invisible joiners.
bool Misleads(char32_t code) {
  return (code >= 0x80 && code < 0xA0) || (code >= 0x200B && code <= 0x200F) ||
         (code >= 0x2028 && code <= 0x202E) || (code >= 0x2060 && code <= 0x206F) || code == 0xFEFF;
}

int WidthOf(char32_t code) {
  if (IsCombining(code)) return 0;
  return IsWide(code) ? 2 : 1;
}

// The picture of a control character: U+2400 and on, U+2421 for delete.
void AppendControlPicture(std::string& out, char32_t code) {
  const char last = static_cast<char>(code == 0x7F ? 0x21 : code);
  out += "\xE2\x90";
  out += static_cast<char>(0x80 | last);
}

// Most texts, and nothing needs to be looked at twice in them.
bool IsPrintableAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

}  // namespace

std::string Harmless(std::string_view utf8) {
  if (IsPrintableAscii(utf8)) return std::string(utf8);
  std::string out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    const Character character = FirstOf(utf8);
    if (character.code < 0x20 || character.code == 0x7F)
      AppendControlPicture(out, character.code);
    else
      out += Misleads(character.code) ? kReplacement : utf8.substr(0, character.length);
    utf8.remove_prefix(character.length);
  }
  return out;
}

int DisplayWidth(std::string_view utf8) {
  if (IsPrintableAscii(utf8)) return static_cast<int>(utf8.size());
  int width = 0;
  while (!utf8.empty()) {
    const Character character = FirstOf(utf8);
    width += WidthOf(character.code);
    utf8.remove_prefix(character.length);
  }
  return width;
}

std::string CutToWidth(std::string_view utf8, int width) {
  if (DisplayWidth(utf8) <= width) return std::string(utf8);
  std::size_t kept = 0;
  int filled = 1;  // by the ellipsis
  while (kept < utf8.size()) {
    const Character character = FirstOf(utf8.substr(kept));
    if (filled + WidthOf(character.code) > width) break;
    filled += WidthOf(character.code);
    kept += character.length;
  }
  return std::string(utf8.substr(0, kept)).append(kEllipsis);
}

}  // namespace qv
