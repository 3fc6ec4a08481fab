#include "cli/JsonWriter.h"

#include "text/Utf8.h"

#include <algorithm>

namespace qv {
namespace {

bool IsPlain(char c) { return c >= 0x20 && static_cast<unsigned char>(c) < 0x80 && c != '"' && c != '\\'; }

void AppendEscaped(std::string& out, char c) {
  constexpr std::string_view kShort[] = {"\"\"", "\\\\", "\bb", "\ff", "\nn", "\rr", "\tt"};
  constexpr const char* kDigits = "0123456789abcdef";
  out += '\\';
  for (const std::string_view known : kShort)
    if (known[0] == c) {
      out += known[1];
      return;
    }
  out.append("u00").append(1, kDigits[c >> 4]).append(1, kDigits[c & 0xF]);
}

void AppendText(std::string& out, std::string_view utf8) {
  out += '"';
  for (;;) {
    const auto plainEnd = std::find_if_not(utf8.begin(), utf8.end(), IsPlain);
    out.append(utf8.begin(), plainEnd);
    utf8.remove_prefix(static_cast<std::size_t>(plainEnd - utf8.begin()));
    if (utf8.empty()) break;
    const Utf8Character character = DecodeUtf8(utf8);
    if (character.code < 0x80)
      AppendEscaped(out, utf8[0]);
    else
      out += character.code == kIllFormed ? kReplacementCharacter : utf8.substr(0, character.length);
    utf8.remove_prefix(character.length);
  }
  out += '"';
}

}  // namespace

void JsonWriter::BreakLine() {
  if (needsComma_) out_ += ',';
  needsComma_ = false;
  out_ += '\n';
}

JsonWriter& JsonWriter::Key(std::string_view key) {
  Separate();
  out_.append(1, '"').append(key).append("\":");
  needsComma_ = false;
  return *this;
}

void JsonWriter::Value(std::string_view text) {
  Separate();
  AppendText(out_, text);
}

void JsonWriter::Separate() {
  if (needsComma_) out_ += ',';
  needsComma_ = true;
}

void JsonWriter::Begin(char bracket) {
  Separate();
  out_ += bracket;
  needsComma_ = false;
}

void JsonWriter::End(char bracket) {
  out_ += bracket;
  needsComma_ = true;
}

void JsonWriter::Literal(std::string_view text) {
  Separate();
  out_ += text;
}

std::string JsonText(std::string_view utf8) {
  std::string text;
  AppendText(text, utf8);
  return text;
}

}  // namespace qv
