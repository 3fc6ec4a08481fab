#include "engines/columns/TextBuffer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace qv {
namespace {

constexpr std::array<std::uint64_t, 10> kPowersOfTen = {1,      10,      100,      1000,      10000,
                                                        100000, 1000000, 10000000, 100000000, 1000000000};

#ifdef __SIZEOF_INT128__
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
#else  // 32 bits: std::to_chars() gives the same texts, more slowly
bool ScaleExactly(double, int, std::uint64_t&) { return false; }
#endif

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
