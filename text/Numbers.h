#pragma once

#include <string>
#include <string_view>

namespace qv {

/// What was odd about a text that was read as a number.
enum class NumberFault : unsigned char {
  None,
  Empty,         ///< nothing but white space
  NoDigits,      ///< no number at its start
  TrailingText,  ///< more than white space after the number
  OutOfRange,    ///< a number that the type cannot hold
};

/// A number read from the start of a text.
template <class Number>
struct Parsed {
  Number value = 0;
  NumberFault fault = NumberFault::None;
};

/// As the C library's atoi in the classic locale: leading white space and a sign are taken, no digits give 0,
/// what follows the digits is ignored. A number that an int cannot hold gives the nearest int.
Parsed<int> ParseInt(std::string_view text);

/// As the C library's atof in the classic locale, hexadecimal, infinity and nan included.
Parsed<double> ParseReal(std::string_view text);

/// Appends a number with a decimal comma as the functions above take it: with a point for the first comma,
/// and without the points, blanks (also non-breaking) and apostrophes that group its digits by three. A point
/// elsewhere ends the number, which is then one with trailing text. A whole number may end with a comma and
/// zeros.
void AppendWithPoint(std::string& out, std::string_view text, bool isWhole);

/// Appends the shortest text that reads back as the same number ("1.1", "nan", "-inf").
void AppendShortest(std::string& out, float value);
void AppendShortest(std::string& out, double value);

}  // namespace qv
