#pragma once

#include <string>
#include <string_view>

namespace qv {

bool IsAscii(std::string_view text);

/// What the bytes of data files and records mean: the platform's code page unless the user named an encoding.
class TextCoding {
 public:
  TextCoding() = default;

  /// Throws UsageError for an encoding that the platform does not know.
  explicit TextCoding(std::string encoding);

  /// As UTF-8; a byte that does not decode becomes U+FFFD.
  std::string Decode(std::string_view bytes) const;

  /// The reverse; what the encoding cannot hold becomes "?".
  std::string Encode(std::string_view utf8) const;

 private:
  std::string encoding_;    // empty: the platform's
  bool keepsAscii_ = true;  // ASCII needs no conversion, as in all but a few encodings
};

}  // namespace qv
