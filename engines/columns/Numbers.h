#pragma once

#include "engines/columns/Remark.h"
#include "engines/columns/TextBuffer.h"

#include <cstdint>
#include <string_view>

namespace qv {

/// A number read from the start of a text and what was odd about the text.
template <class Number>
struct Parsed {
  Number value = 0;
  Remark remark = Remark::None;
};

/// As the C library's atoi in the classic locale: leading white space and a sign are taken, no digits give 0,
/// what follows the digits is ignored. A number that an int cannot hold gives the nearest int.
Parsed<int> ParseInt(std::string_view text);

/// As the C library's atof in the classic locale, hexadecimal, infinity and nan included.
Parsed<double> ParseReal(std::string_view text);

/// As "%d".
void AppendInt(TextBuffer& out, std::int64_t value);

/// As "%.<decimals>f", correctly rounded. At most 9 decimals.
void AppendFixed(TextBuffer& out, double value, int decimals);

}  // namespace qv
