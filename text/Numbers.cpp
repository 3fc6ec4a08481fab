#include "text/Numbers.h"

#include "text/Ascii.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace qv {
namespace {

bool IsBlank(const char* at, const char* end) {
  return SkipSpace({at, static_cast<std::size_t>(end - at)}).empty();
}

NumberFault FaultOfRest(const char* at, const char* end) {
  return IsBlank(at, end) ? NumberFault::None : NumberFault::TrailingText;
}

NumberFault FaultOfNoDigits(const char* begin, const char* end) {
  return IsBlank(begin, end) ? NumberFault::Empty : NumberFault::NoDigits;
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

// A blank that does not break is one byte in most code pages; the apostrophe may be a typographic one.
constexpr std::string_view kGroupMarks[] = {".",           " ", "'", "\xA0", "\xC2\xA0", "\xE2\x80\xAF",
                                            "\xE2\x80\x99"};

std::size_t CountDigits(std::string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
}

/// The mark that parts the digits before it from a group of three; empty when there is none.
std::string_view GroupMarkOf(std::string_view text) {
  for (const std::string_view mark : kGroupMarks)
    if (text.starts_with(mark) && CountDigits(text.substr(mark.size())) == 3) return mark;
  return {};
}

template <class Real>
void AppendChars(std::string& out, Real value) {
  char text[32];
  out.append(text, std::to_chars(text, text + sizeof text, value).ptr);
}

}  // namespace

Parsed<int> ParseInt(std::string_view text) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const char* at = SkipSpace(text).data();
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  if (at == end || !IsDigit(*at)) return {0, FaultOfNoDigits(begin, end)};
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
  const NumberFault fault = beyond ? NumberFault::OutOfRange : FaultOfRest(at, end);
  return {static_cast<int>(negative ? -value : value), fault};
}

Parsed<double> ParseReal(std::string_view text) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const char* at = SkipSpace(text).data();
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  // from_chars would take a second minus sign.
  if (at == end || *at == '-') return {0.0, FaultOfNoDigits(begin, end)};
  const bool hexadecimal = IsHexadecimal(at, end);
  if (hexadecimal) at += 2;
  double value = 0.0;
  const auto result =
      std::from_chars(at, end, value, hexadecimal ? std::chars_format::hex : std::chars_format::general);
  if (result.ec == std::errc::invalid_argument) return {0.0, FaultOfNoDigits(begin, end)};
  NumberFault fault = FaultOfRest(result.ptr, end);
  if (result.ec == std::errc::result_out_of_range) {
    value = BeyondRange({at, static_cast<std::size_t>(result.ptr - at)}, hexadecimal);
    fault = NumberFault::OutOfRange;
  } else if (fault == NumberFault::None && !std::isfinite(value)) {
    fault = std::isnan(value) ? NumberFault::NoDigits : NumberFault::OutOfRange;
  }
  return {negative ? -value : value, fault};
}

void AppendWithPoint(std::string& out, std::string_view text, bool isWhole) {
  const auto take = [&](std::size_t size) {
    out.append(text.substr(0, size));
    text.remove_prefix(size);
  };
  take(text.size() - SkipSpace(text).size());
  if (text.starts_with('-') || text.starts_with('+')) take(1);
  const std::size_t digits = CountDigits(text);
  const bool mayHaveGroups = digits >= 1 && digits <= 3 && text.front() != '0';
  take(digits);
  const std::string_view mark = mayHaveGroups ? GroupMarkOf(text) : std::string_view();
  while (!mark.empty() && GroupMarkOf(text) == mark) {
    text.remove_prefix(mark.size());
    take(3);
  }
  if (text.starts_with('.')) out += '_';  // no part of any number
  if (text.starts_with(',')) {
    text.remove_prefix(1);
    const std::size_t zeros = std::min(text.find_first_not_of('0'), text.size());
    if (isWhole && digits > 0 && zeros > 0 && SkipSpace(text.substr(zeros)).empty()) return;
    out += '.';
  }
  out.append(text);
}

void AppendShortest(std::string& out, float value) { AppendChars(out, value); }
void AppendShortest(std::string& out, double value) { AppendChars(out, value); }

}  // namespace qv
