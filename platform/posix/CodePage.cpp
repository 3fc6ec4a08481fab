#include "platform/CodePage.h"

#include "text/Ascii.h"
#include "text/Utf8.h"

#include <iconv.h>

#include <array>
#include <cerrno>

namespace qv {
namespace {

const iconv_t kNone = reinterpret_cast<iconv_t>(-1);

// The system reads a slash as the start of an option ("//IGNORE") that would change what this class promises.
bool IsPlainName(const std::string& name) { return !name.empty() && name.find('/') == std::string::npos; }

// A conversion between two encodings that the system knows.
class Iconv {
 public:
  Iconv(const std::string& to, const std::string& from)
      : handle_(IsPlainName(to) && IsPlainName(from) ? iconv_open(to.c_str(), from.c_str()) : kNone) {}
  ~Iconv() {
    if (IsOpen()) iconv_close(handle_);
  }
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;

  bool IsOpen() const { return handle_ != kNone; }

  // Converts from the front of `text`, taking off what it has converted, and appends to `out`. False when
  // `text` then starts with something that does not convert.
  bool Convert(std::string_view& text, std::string& out) {
    std::array<char, 4096> buffer;
    while (!text.empty()) {
      char* input = const_cast<char*>(text.data());  // iconv() does not write to it
      std::size_t inputLeft = text.size();
      char* output = buffer.data();
      std::size_t outputLeft = buffer.size();
      const std::size_t result = iconv(handle_, &input, &inputLeft, &output, &outputLeft);
      const int error = errno;
      out.append(buffer.data(), buffer.size() - outputLeft);
      text.remove_prefix(text.size() - inputLeft);
      if (result == static_cast<std::size_t>(-1) && error != E2BIG) return false;
    }
    return true;
  }

  // Appends what a stateful encoding needs at its end.
  void Finish(std::string& out) {
    std::array<char, 64> buffer;
    char* output = buffer.data();
    std::size_t outputLeft = buffer.size();
    iconv(handle_, nullptr, nullptr, &output, &outputLeft);
    out.append(buffer.data(), buffer.size() - outputLeft);
  }

 private:
  iconv_t handle_;
};

bool IsUtf8(const std::string& encoding) {
  return EqualsIgnoringCase(encoding, "utf-8") || EqualsIgnoringCase(encoding, "utf8");
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
