#pragma once

#include "records/BlockSource.h"
#include "records/SpinLock.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace qv {

/// Hands out slots of like size from large blocks. The block of a slot is found by its address alone, so that
/// a slot goes back without its size. Blocks whose slots are all free are given back, but for the last one
/// with room.
class SlotClass {
 public:
  /// Null when memory runs out.
  void* Take(std::size_t slotSize, const BlockSource& source) noexcept;

  struct Block;
  void PutBack(Block* block, void* slot) noexcept;

 private:
  Block* Grow(std::size_t slotSize, const BlockSource& source) noexcept;
  void List(Block* block) noexcept;
  void Unlist(Block* block) noexcept;

  SpinLock lock_;
  Block* withRoom_ = nullptr;
};

/// Memory for records of any size: one SlotClass per size up to kLargestSlot, the heap beyond. Slots are
/// aligned to 16 bytes. A pool is never torn down: whoever deletes a record last finds it working.
class RecordPool {
 public:
  static constexpr std::size_t kLargestSlot = std::size_t{64} << 10;

  /// Null when memory runs out.
  void* Allocate(std::size_t size) noexcept;

  /// Takes back what any pool has given out. Null is ignored.
  static void Free(void* slot) noexcept;

  void SetSource(const BlockSource& source) noexcept { source_.store(&source, std::memory_order_release); }

 private:
  // Fine steps where records lie, so that a million of them waste nothing; coarse ones for arrays.
  static constexpr std::size_t kFine = 16, kFineEnd = 1024;
  static constexpr std::size_t kMedium = 64, kMediumEnd = 8192;
  static constexpr std::size_t kCoarse = 1024;
  static constexpr std::size_t kFineClasses = kFineEnd / kFine;
  static constexpr std::size_t kMediumClasses = (kMediumEnd - kFineEnd) / kMedium;
  static constexpr std::size_t kCoarseClasses = (kLargestSlot - kMediumEnd) / kCoarse;

  struct Place {
    std::size_t rank;
    std::size_t slotSize;
  };
  static Place PlaceOf(std::size_t size) noexcept;

  // Threads that build records of different sizes do not share a line.
  struct alignas(64) OwnLine : SlotClass {};

  std::atomic<const BlockSource*> source_{&kHeapBlocks};
  std::array<OwnLine, kFineClasses + kMediumClasses + kCoarseClasses> classes_;
};

}  // namespace qv
