#pragma once

#include <cstddef>

namespace qv {

/// Memory in large pieces, straight from the system: `size` bytes, a power of two of at least 64 KiB, zeroed.
/// It comes in huge pages where the system grants them to whoever asks; a huge page is made whole at the
/// first touch, so this is for what will be filled. Null when there is none to give.
void* AcquireLargeBlock(std::size_t size) noexcept;

/// Gives back what AcquireLargeBlock() gave for the same size.
void ReleaseLargeBlock(void* block, std::size_t size) noexcept;

}  // namespace qv
