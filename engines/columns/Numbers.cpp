#include "engines/columns/Numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace qv {
namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

const char* SkipSpace(const char* at, const char* end) {
  while (at != end && IsSpace(*at)) ++at;
  return at;
}

Remark RemarkOnRest(const char* at, const char* end) {
  return SkipSpace(at, end) == end ? Remark::None : Remark::TrailingText;
}

Remark RemarkOnNoDigits(const char* begin, const char* end) {
  return SkipSpace(begin, end) == end ? Remark::EmptyValue : Remark::NotANumber;
}

// from_chars does not say which way a number left the range. It did so upwards exactly when the first
// significant digit stands left of the point once the exponent is applied.
double BeyondRange(std::string_view number, bool hexadecimal) {
  const std::size_t mark = std::min(number.find_first_of(hexadecimal ? "pP" : "eE"), number.size());
  const std::size_t point = std::min(number.find('.'), mark);
  const std::size_t digit = std::min(number.find_first_not_of("0."), mark);
  constexpr std::int64_t kFar = std::int64_t{1} << 40;  // more digits than any text has
  std::int64_t exponent = 0;
  if (mark < number.size()) {
    std::string_view digits = number.substr(mark + 1);
    if (digits.starts_with('+')) digits.remove_prefix(1);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    if (result.ec == std::errc::result_out_of_range) exponent = digits.starts_with('-') ? -kFar : kFar;
    exponent = std::clamp(exponent, -kFar, kFar);
  }
  const std::int64_t position = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(digit);
  return position * (hexadecimal ? 4 : 1) + exponent > 0 ? HUGE_VAL : 0.0;
}

bool IsHexadecimal(const char* at, const char* end) {
  return end - at > 2 && at[0] == '0' && (at[1] == 'x' || at[1] == 'X') &&
         (std::isxdigit(static_cast<unsigned char>(at[2])) ||
          (at[2] == '.' && end - at > 3 && std::isxdigit(static_cast<unsigned char>(at[3]))));
}

constexpr std::array<std::uint64_t, 10> kPowersOfTen = {1,      10,      100,      1000,      10000,
                                                        100000, 1000000, 10000000, 100000000, 1000000000};

__extension__ typedef unsigned __int128 Wide;

// |value| scaled by ten to the decimals and rounded half to even, exactly; false when it does not fit 64
// bits.
bool ScaleExactly(double value, int decimals, std::uint64_t& scaled) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int biased = static_cast<int>(bits >> 52) & 0x7ff;
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
  const std::uint64_t mantissa = biased == 0 ? fraction : fraction | (std::uint64_t{1} << 52);
  const int exponent = std::max(biased, 1) - 1075;
  if (exponent > -1) return false;
  const Wide product = Wide{mantissa} * kPowersOfTen[static_cast<std::size_t>(decimals)];
  const int shift = -exponent;
  if (shift > 100) {
    scaled = 0;  // the product has 83 bits at most, so this is far below one half
    return true;
  }
  const Wide whole = product >> shift;
  const Wide rest = product - (whole << shift);
  const Wide half = Wide{1} << (shift - 1);
  if (whole >= std::numeric_limits<std::uint64_t>::max()) return false;
  scaled = static_cast<std::uint64_t>(whole);
  if (rest > half || (rest == half && (scaled & 1) != 0)) ++scaled;
  return true;
}

void AppendScaled(TextBuffer& out, bool negative, std::uint64_t scaled, int decimals) {
  char text[32];
  char* const end = text + sizeof text;
  char* at = end;
  for (int digit = 0; digit < decimals; ++digit, scaled /= 10) *--at = static_cast<char>('0' + scaled % 10);
  if (decimals > 0) *--at = '.';
  do {
    *--at = static_cast<char>('0' + scaled % 10);
    scaled /= 10;
  } while (scaled != 0);
  if (negative) *--at = '-';
  out += std::string_view(at, end);
}

}  // namespace

Parsed<int> ParseInt(std::string_view text) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const char* at = SkipSpace(begin, end);
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  if (at == end || !IsDigit(*at)) return {0, RemarkOnNoDigits(begin, end)};
  constexpr std::int64_t kLimit = std::numeric_limits<int>::max();
  const std::int64_t limit = negative ? kLimit + 1 : kLimit;
  std::int64_t value = 0;
  bool beyond = false;
  for (; at != end && IsDigit(*at); ++at) {
    value = value * 10 + (*at - '0');
    if (value > limit) {
      value = limit;
      beyond = true;
    }
  }
  const Remark remark = beyond ? Remark::NumberOutOfRange : RemarkOnRest(at, end);
  return {static_cast<int>(negative ? -value : value), remark};
}

Parsed<double> ParseReal(std::string_view text) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const char* at = SkipSpace(begin, end);
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  // from_chars would take a second minus sign.
  if (at == end || *at == '-') return {0.0, RemarkOnNoDigits(begin, end)};
  const bool hexadecimal = IsHexadecimal(at, end);
  if (hexadecimal) at += 2;
  double value = 0.0;
  const auto result =
      std::from_chars(at, end, value, hexadecimal ? std::chars_format::hex : std::chars_format::general);
  if (result.ec == std::errc::invalid_argument) return {0.0, RemarkOnNoDigits(begin, end)};
  Remark remark = RemarkOnRest(result.ptr, end);
  if (result.ec == std::errc::result_out_of_range) {
    value = BeyondRange({at, static_cast<std::size_t>(result.ptr - at)}, hexadecimal);
    remark = Remark::NumberOutOfRange;
  } else if (remark == Remark::None && !std::isfinite(value)) {
    remark = std::isnan(value) ? Remark::NotANumber : Remark::NumberOutOfRange;
  }
  return {negative ? -value : value, remark};
}

void AppendInt(TextBuffer& out, std::int64_t value) {
  constexpr std::size_t kLongest = 20;
  char* const room = out.Room(kLongest);
  out.EndAt(std::to_chars(room, room + kLongest, value).ptr);
}

void AppendFixed(TextBuffer& out, double value, int decimals) {
  std::uint64_t scaled = 0;
  if (std::isfinite(value) && ScaleExactly(value, decimals, scaled)) {
    AppendScaled(out, std::signbit(value), scaled, decimals);
    return;
  }
  constexpr std::size_t kLongest = 352;  // the largest double has 309 digits before the point
  char* const room = out.Room(kLongest);
  out.EndAt(std::to_chars(room, room + kLongest, value, std::chars_format::fixed, decimals).ptr);
}

}  // namespace qv
