#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

/// Appends JSON to a text, without blanks; commas come by themselves. Whoever owns the text may write it out
/// and clear it at any time, so that a document may be longer than memory is large.
///
/// Not a library's writer, as those print a float by the digits of a double, and hold a document before they
/// write it.
class JsonWriter {
 public:
  explicit JsonWriter(std::string& out) : out_(out) {}

  void BeginObject() { Begin('{'); }
  void EndObject() { End('}'); }
  void BeginArray() { Begin('['); }
  void EndArray() { End(']'); }

  /// The next value starts on a new line.
  void BreakLine();

  /// `key` is of characters that need no escape.
  JsonWriter& Key(std::string_view key);

  /// UTF-8; what is ill-formed becomes U+FFFD.
  void Value(std::string_view text);
  void Value(const char* text) { Value(std::string_view(text)); }
  void Value(bool flag) { Literal(flag ? "true" : "false"); }
  void Value(std::integral auto number) { Integer(static_cast<std::int64_t>(number)); }
  /// In the shortest form that reads back as the same number, with a point or an exponent to show that it is
  /// no whole one by nature. JSON has no infinities: they and NaN become null.
  void Value(float number);
  void Value(double number);

  void Member(std::string_view key, const auto& value) { Key(key).Value(value); }

 private:
  void Separate();
  void Begin(char bracket);
  void End(char bracket);
  void Literal(std::string_view text);
  void Integer(std::int64_t number);
  template <class Number>
  void Real(Number number);

  std::string& out_;
  bool needsComma_ = false;
};

/// UTF-8 as a JSON text, in its quotes.
std::string JsonText(std::string_view utf8);

}  // namespace qv
