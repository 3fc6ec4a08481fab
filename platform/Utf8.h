#pragma once

#include <cstddef>
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

/// `text` must not be empty.
Utf8Character DecodeUtf8(std::string_view text);

}  // namespace qv
