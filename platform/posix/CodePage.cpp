#include "platform/CodePage.h"

#include "platform/Utf8.h"
#include "platform/posix/Iconv.h"

#include <strings.h>

namespace qv {
namespace {

bool IsUtf8(const std::string& encoding) {
  return ::strcasecmp(encoding.c_str(), "utf-8") == 0 || ::strcasecmp(encoding.c_str(), "utf8") == 0;
}

}  // namespace

std::string ToUtf8(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  std::size_t start = 0;  // of a well-formed stretch, copied as a whole
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = DecodeUtf8(text.substr(at));
    if (character.code == kIllFormed) {
      utf8.append(text.substr(start, at - start)).append(kReplacementCharacter);
      start = at + character.length;
    }
    at += character.length;
  }
  return utf8.append(text.substr(start));
}

std::string FromUtf8(std::string_view utf8) { return std::string(utf8); }

std::optional<std::string> DecodeText(std::string_view text, const std::string& encoding) {
  if (IsUtf8(encoding)) return ToUtf8(text);
  Iconv converter("UTF-8", encoding);
  if (!converter.IsOpen()) return std::nullopt;
  std::string utf8;
  while (!converter.Convert(text, utf8)) {
    utf8 += kReplacementCharacter;
    text.remove_prefix(1);
  }
  converter.Finish(utf8);
  return utf8;
}

DecodedText DecodeStrictly(std::string_view text, const std::string& encoding) {
  Iconv converter("UTF-8", encoding);
  DecodedText decoded;
  decoded.knownEncoding = converter.IsOpen();
  decoded.whole = decoded.knownEncoding && converter.Convert(text, decoded.utf8);
  return decoded;
}

std::optional<std::string> EncodeText(std::string_view utf8, const std::string& encoding) {
  Iconv converter(encoding, "UTF-8");
  if (!converter.IsOpen()) return std::nullopt;
  const std::string wellFormed = ToUtf8(utf8);
  std::string_view rest = wellFormed;
  std::string text;
  while (!converter.Convert(rest, text)) {
    std::string_view questionMark = "?";
    converter.Convert(questionMark, text);
    rest.remove_prefix(DecodeUtf8(rest).length);
  }
  converter.Finish(text);
  return text;
}

}  // namespace qv
