#pragma once

#include <cstddef>

namespace qv {

/// Memory in large pieces, straight from the system: `size` bytes, zeroed, at an address divisible by `size`,
/// which is a power of two of at least 64 KiB. It comes in large pages where the system grants them to
/// whoever asks; they come whole at the first touch, so it is for what will be filled. Null when there is
/// none to give.
void* AcquireLargeBlock(std::size_t size) noexcept;

/// Gives back what AcquireLargeBlock() gave for the same size.
void ReleaseLargeBlock(void* block, std::size_t size) noexcept;

}  // namespace qv
