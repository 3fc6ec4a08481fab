#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv {

/// Text of the platform's code page (Windows: the process's ANSI code page; elsewhere UTF-8) as UTF-8. A byte
/// that does not decode becomes U+FFFD.
std::string ToUtf8(std::string_view text);

/// UTF-8 as text of the platform's code page; what it cannot hold becomes "?".
std::string FromUtf8(std::string_view utf8);

/// Text of a named encoding ("windows-1252", "shift_jis", "utf-8") as UTF-8, a byte that does not decode
/// becoming U+FFFD; nothing when the platform does not know the name.
std::optional<std::string> DecodeText(std::string_view text, const std::string& encoding);

/// The reverse of DecodeText(); what the encoding cannot hold becomes "?".
std::optional<std::string> EncodeText(std::string_view utf8, const std::string& encoding);

/// How far a text decodes.
struct DecodedText {
  std::string utf8;            ///< up to the first byte that does not decode
  bool knownEncoding = false;  ///< whether the platform knows the encoding's name
  bool whole = false;          ///< whether all of the text decoded
};

/// Text of a named encoding as UTF-8, up to the first byte that is not of it.
DecodedText DecodeStrictly(std::string_view text, const std::string& encoding);

}  // namespace qv
