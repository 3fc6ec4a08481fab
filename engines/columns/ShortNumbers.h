#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Plain numbers of at most eight characters, which nearly all numbers of a table are: converted by SIMD
/// within a register (SWAR), without a branch on their length or digits, as one branch misprediction costs
/// more than the conversion. Whatever is not plain is left to text/Numbers.h.
namespace qv {

/// A plain number's digits and how many of them follow the point.
struct ShortNumber {
  std::uint32_t digits = 0;
  unsigned decimals = 0;
  bool isNegative = false;
  bool isPlain = false;  ///< or else the text has to be looked at again
};

namespace short_number {

inline constexpr std::uint64_t kOnes = 0x0101010101010101u;

template <class Word>
std::uint64_t Load(const char* at) {
  Word word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

/// The characters in the word's lowest bytes, the first one lowest. At least one, at most eight; nothing else
/// is read.
inline std::uint64_t LoadText(const char* text, std::size_t size) {
  if (size >= 4) return Load<std::uint32_t>(text) | Load<std::uint32_t>(text + size - 4) << 8 * (size - 4);
  const std::size_t middle = size / 2;
  return Load<std::uint8_t>(text) | Load<std::uint8_t>(text + middle) << 8 * middle |
         Load<std::uint8_t>(text + size - 1) << 8 * (size - 1);
}

/// Removes the first point from the characters, if there is one, and returns how many follow it. Branchless,
/// as no branch predictor knows which numbers have one.
inline unsigned RemovePoint(std::uint64_t& text, std::size_t& size) {
  const std::uint64_t others = text ^ kOnes * '.';
  const std::uint64_t points = (others - kOnes) & ~others & kOnes << 7;
  const std::uint64_t first = points & (~points + 1);
  const auto before = static_cast<std::uint64_t>(static_cast<std::int64_t>(first - 1) >> 7);  // all: no point
  text = (text & before) | (text >> 8 & ~before);
  const std::size_t hasPoint = points != 0;
  size -= hasPoint;
  const std::size_t place = static_cast<std::size_t>(std::countr_zero(points)) / 8;
  return static_cast<unsigned>((size - place) & (~hasPoint + 1));
}

/// The number that the digits make, moved to the word's highest bytes; false when they are not all digits.
inline bool Convert(std::uint64_t text, std::size_t size, std::uint32_t& number) {
  const std::size_t empty = 8 * (8 - size);
  std::uint64_t digits = (text ^ kOnes * '0') << empty;
  if (((digits + kOnes * 0x76) | digits) & kOnes << 7) return false;
  digits = digits * 10 + (digits >> 8);
  constexpr std::uint64_t kPairs = 0x000000FF000000FFu;
  constexpr std::uint64_t kFirst = 100 + (std::uint64_t{1000000} << 32);
  constexpr std::uint64_t kSecond = 1 + (std::uint64_t{10000} << 32);
  number = static_cast<std::uint32_t>(((digits & kPairs) * kFirst + (digits >> 16 & kPairs) * kSecond) >> 32);
  return true;
}

}  // namespace short_number

/// `MayHavePoint` is false for whole numbers, where a point ends the digits and is thus not plain.
template <bool MayHavePoint>
[[gnu::always_inline]] inline ShortNumber ParseShort(std::string_view text) {
  ShortNumber number;
  if (std::endian::native != std::endian::little || text.empty()) return number;
  number.isNegative = text.front() == '-';
  text.remove_prefix(number.isNegative);
  std::size_t size = text.size();
  if (size - 1 >= 8) return number;
  std::uint64_t characters = short_number::LoadText(text.data(), size);
  if (MayHavePoint) number.decimals = short_number::RemovePoint(characters, size);
  number.isPlain = size > 0 && short_number::Convert(characters, size, number.digits);
  return number;
}

/// True, with what ParseInt() would give, when the text is a plain number.
[[gnu::always_inline]] inline bool ParseShortInt(std::string_view text, int& value) {
  const ShortNumber number = ParseShort<false>(text);
  const int digits = static_cast<int>(number.digits);
  if (number.isPlain) value = number.isNegative ? -digits : digits;
  return number.isPlain;
}

/// True, with what ParseReal() would give, when the text is a plain number: digits and power of ten are both
/// exact, so that their quotient is the nearest number there is.
[[gnu::always_inline]] inline bool ParseShortReal(std::string_view text, double& value) {
  constexpr std::array kPowersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
  const ShortNumber number = ParseShort<true>(text);
  const double size = number.digits / kPowersOfTen[number.decimals];
  if (number.isPlain) value = number.isNegative ? -size : size;
  return number.isPlain;
}

}  // namespace qv
