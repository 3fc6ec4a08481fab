#include "cli/TextCoding.h"

#include "cli/Errors.h"
#include "platform/CodePage.h"

namespace qv {
namespace {

// What takes a file apart, and the digits. UTF-16 is an encoding that writes them otherwise.
constexpr std::string_view kMarks = "0123456789.,;|\t\r\n\"'";

// Encodings that switch between sets of characters write these kana by the bytes of commas and quotes.
bool HidesMarks(const std::string& encoding) {
  return EncodeText("\u3042\u3047\u304C", encoding).value_or(std::string()).find_first_of(",\"'") !=
         std::string::npos;
}

std::string AllAscii() {
  std::string ascii;
  for (char c = 1; c < 0x7f; ++c) ascii += c;
  return ascii;
}

}  // namespace

TextCoding::TextCoding(std::string encoding, const std::string& option) : encoding_(std::move(encoding)) {
  const std::string ascii = AllAscii();
  const auto decoded = DecodeText(ascii, encoding_);
  if (!decoded)
    throw UsageError(option + ": this system knows no encoding \"" + encoding_ +
                     "\"; try utf-8, windows-1252 or shift_jis");
  keepsAscii_ = *decoded == ascii;
  if (DecodeText(kMarks, encoding_) != kMarks || HidesMarks(encoding_))
    throw UsageError(option + ": the columns of a file in \"" + encoding_ +
                     "\" cannot be told apart; save it as UTF-8 or in a code page");
}

std::string TextCoding::Name() const {
  if (!encoding_.empty()) return encoding_;
  constexpr const char* kWide = "\u682A";
  return FromUtf8(kWide) == kWide ? "UTF-8" : "of the system's code page";
}

std::string TextCoding::Decode(std::string_view bytes) const {
  if (keepsAscii_ && IsAscii(bytes)) return std::string(bytes);
  return encoding_.empty() ? ToUtf8(bytes) : DecodeText(bytes, encoding_).value_or(std::string());
}

std::string_view TextCoding::Encode(std::string_view utf8, std::string& buffer) const {
  if (keepsAscii_ && IsAscii(utf8)) return utf8;
  buffer = encoding_.empty() ? FromUtf8(utf8) : EncodeText(utf8, encoding_).value_or(std::string());
  return buffer;
}

}  // namespace qv
