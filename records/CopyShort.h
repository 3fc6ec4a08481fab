#pragma once

#include <cstddef>
#include <cstring>

namespace qv {

namespace copy_short {

/// Copies `size` characters as two pieces, which may overlap. At most twice as many as a piece has, and not
/// fewer.
template <std::size_t Piece>
inline void CopyTwo(char* to, const char* from, std::size_t size) {
  char first[Piece], last[Piece];
  std::memcpy(first, from, Piece);
  std::memcpy(last, from + size - Piece, Piece);
  std::memcpy(to, first, Piece);
  std::memcpy(to + size - Piece, last, Piece);
}

}  // namespace copy_short

/// As memcpy, for texts that are nearly always short: where it is inlined, a processor learns the lengths
/// that occur there, which it cannot in one function that copies everything.
inline void CopyShort(char* to, const char* from, std::size_t size) {
  using namespace copy_short;
  if (size > 32)
    std::memcpy(to, from, size);
  else if (size >= 16)
    CopyTwo<16>(to, from, size);
  else if (size >= 8)
    CopyTwo<8>(to, from, size);
  else if (size >= 4)
    CopyTwo<4>(to, from, size);
  else if (size >= 2)
    CopyTwo<2>(to, from, size);
  else if (size == 1)
    *to = *from;
}

}  // namespace qv
