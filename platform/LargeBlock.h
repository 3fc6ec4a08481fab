#pragma once

#include <cstddef>

namespace qv {

/// The pages that memory comes in: those of the system's choice, or large ones where the system grants them
/// to whoever asks. Large ones come whole at the first touch, so they are for memory that will be filled.
enum class Pages { Usual, Large };

/// Memory in large pieces, straight from the system: `size` bytes, zeroed, at an address divisible by `size`,
/// which is a power of two of at least 64 KiB. Null when there is none to give.
void* AcquireLargeBlock(std::size_t size, Pages pages) noexcept;

/// Gives back what AcquireLargeBlock() gave for the same size.
void ReleaseLargeBlock(void* block, std::size_t size) noexcept;

}  // namespace qv
