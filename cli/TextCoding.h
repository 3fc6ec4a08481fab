#pragma once

#include "text/Utf8.h"

#include <string>
#include <string_view>

namespace qv {

/// What some programs put in front of UTF-8. It is in or above the header row, where no record meets it.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// What the bytes of data files and records mean: the platform's code page unless the user named an encoding.
class TextCoding {
 public:
  TextCoding() = default;

  /// Throws UsageError, naming the option, for an encoding that is not known or that data files cannot have.
  explicit TextCoding(std::string encoding, const std::string& option = "--encoding");

  /// What to call the encoding: "windows-1252", "UTF-8", "of the system's code page".
  std::string Name() const;

  /// As UTF-8; a byte that does not decode becomes U+FFFD.
  std::string Decode(std::string_view bytes) const;

  /// The reverse; what the encoding cannot hold becomes "?". A view of the text itself or of `buffer`.
  std::string_view Encode(std::string_view utf8, std::string& buffer) const;

 private:
  std::string encoding_;    // empty: the platform's
  bool keepsAscii_ = true;  // ASCII needs no conversion, as in all but a few encodings
};

}  // namespace qv
