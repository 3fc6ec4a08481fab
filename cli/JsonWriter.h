#pragma once

#include "text/Numbers.h"

#include <cmath>
#include <concepts>
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
  void Value(std::integral auto number) { Literal(std::to_string(number)); }
  /// In the shortest form that reads back as the same number, with a point or an exponent to show that it is
  /// no whole one by nature. JSON has no infinities: they and NaN become null.
  void Value(std::floating_point auto number) {
    if (!std::isfinite(number)) return Literal("null");
    std::string shortest;
    AppendShortest(shortest, number);
    Literal(shortest.find_first_of(".e") == std::string::npos ? shortest + ".0" : shortest);
  }

  void Member(std::string_view key, const auto& value) { Key(key).Value(value); }

 private:
  void Separate();
  void Begin(char bracket);
  void End(char bracket);
  void Literal(std::string_view text);

  std::string& out_;
  bool needsComma_ = false;
};

/// A line of the JSON that `write` puts into its writer.
std::string JsonLine(auto write) {
  std::string line;
  JsonWriter json(line);
  write(json);
  return line + "\n";
}

/// UTF-8 as a JSON text, in its quotes.
std::string JsonText(std::string_view utf8);

}  // namespace qv
