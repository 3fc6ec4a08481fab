#pragma once

#include <cstddef>

namespace qv {

/// The size of the pieces in which record storage takes memory, and what their addresses are divisible by.
inline constexpr std::size_t kBlockSize = std::size_t{2} << 20;

/// Where blocks come from. Both functions are called from any thread, also while static objects are
/// destroyed.
struct BlockSource {
  void* (*acquire)() noexcept;  ///< null when there is none to give
  void (*release)(void* block) noexcept;
};

/// The standard library's heap.
extern const BlockSource kHeapBlocks;

/// From now on records take their blocks from `source`, which must live as long as the process, and from the
/// heap when it has none to give. Blocks in use go back to where they came from. Safe to call from any
/// thread.
void SetBlockSource(const BlockSource& source) noexcept;

}  // namespace qv
