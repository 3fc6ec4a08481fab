#pragma once

#include <cstddef>
#include <cstring>

namespace qv {

namespace copy_short {

/// Copies between Block and 2 * Block characters as two blocks, which may overlap.
template <std::size_t Block>
inline void CopyTwo(char* to, const char* from, std::size_t size) {
  char first[Block], last[Block];
  std::memcpy(first, from, Block);
  std::memcpy(last, from + size - Block, Block);
  std::memcpy(to, first, Block);
  std::memcpy(to + size - Block, last, Block);
}

}  // namespace copy_short

/// As memcpy, for texts that are nearly always short. It is inlined so that branch prediction learns the
/// lengths of each place where it is used, which it cannot in one function that copies everything.
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
