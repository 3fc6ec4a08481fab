#pragma once

#include <cstddef>

namespace qv {

/// Memory in large pieces, straight from the system: `size` bytes, zeroed, at an address divisible by `size`,
/// which is a power of two of at least 64 KiB. The system is asked to back it with large pages where it does
/// so for everyone. Null when there is none to give.
void* AcquireLargeBlock(std::size_t size) noexcept;

/// Gives back what AcquireLargeBlock() gave for the same size.
void ReleaseLargeBlock(void* block, std::size_t size) noexcept;

}  // namespace qv
