#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace qv {

/// One character as it stands at the front of a text. An ill-formed sequence gives kIllFormed and the length
/// of its maximal subpart, which is what one replacement character stands for.
struct Utf8Character {
  char32_t code;
  std::size_t length;
};

inline constexpr char32_t kIllFormed = 0xFFFFFFFF;
inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

/// Whether all bytes are below 0x80, which mean the same in every code page.
inline bool IsAscii(std::string_view text) {
  std::uint64_t seen = 0;
  while (text.size() >= sizeof seen) {
    std::uint64_t word;
    std::memcpy(&word, text.data(), sizeof word);
    seen |= word;
    text.remove_prefix(sizeof word);
  }
  for (const char c : text) seen |= static_cast<unsigned char>(c);
  return (seen & 0x8080808080808080) == 0;
}

/// `text` must not be empty.
Utf8Character DecodeUtf8(std::string_view text);

}  // namespace qv
