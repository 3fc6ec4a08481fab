#include "records/RecordPool.h"

#include <cstdint>
#include <limits>
#include <mutex>
#include <new>
#include <type_traits>
#include <utility>

namespace qv {

namespace {

struct FreeSlot {
  FreeSlot* next;
};

constexpr std::size_t RoundUp(std::size_t size, std::size_t step) { return (size + step - 1) / step * step; }

void* AcquireFromHeap() noexcept {
  return ::operator new (kBlockSize, std::align_val_t{kBlockSize}, std::nothrow);
}

void ReleaseToHeap(void* block) noexcept { ::operator delete (block, std::align_val_t{kBlockSize}); }

}  // namespace

const BlockSource kHeapBlocks{AcquireFromHeap, ReleaseToHeap};

// The head of a block; the slots follow.
struct alignas(64) SlotClass::Block {
  SlotClass* owner = nullptr;  // none: the block holds a single slot larger than any class
  const BlockSource* source = &kHeapBlocks;
  Block* previous = nullptr;  // among the owner's blocks with room
  Block* next = nullptr;
  FreeSlot* returned = nullptr;
  std::size_t slotSize = 0;
  std::size_t capacity = 0;
  std::size_t fresh = 0;  // slots from this one on were never handed out, and their pages never touched
  std::size_t live = 0;

  static Block* Of(void* slot) noexcept {
    return reinterpret_cast<Block*>(reinterpret_cast<std::uintptr_t>(slot) & ~(kBlockSize - 1));
  }

  bool IsFull() const { return live == capacity; }

  void* Slot(std::size_t rank) { return reinterpret_cast<std::byte*>(this + 1) + rank * slotSize; }

  void* Take() {
    ++live;
    if (returned == nullptr) return Slot(fresh++);
    return std::exchange(returned, returned->next);
  }

  void PutBack(void* slot) {
    returned = new (slot) FreeSlot{returned};
    if (--live > 0) return;
    // Starting over hands out neighbours to neighbours again.
    returned = nullptr;
    fresh = 0;
  }
};

void* SlotClass::Take(std::size_t slotSize, const BlockSource& source) noexcept {
  const std::lock_guard guard(lock_);
  Block* block = withRoom_ != nullptr ? withRoom_ : Grow(slotSize, source);
  if (block == nullptr) return nullptr;
  void* slot = block->Take();
  if (block->IsFull()) Unlist(block);
  return slot;
}

void SlotClass::PutBack(Block* block, void* slot) noexcept {
  {
    const std::lock_guard guard(lock_);
    if (block->IsFull()) List(block);
    block->PutBack(slot);
    const bool onlyOne = withRoom_ == block && block->next == nullptr;
    if (block->live > 0 || onlyOne) return;
    Unlist(block);
  }
  block->source->release(block);
}

SlotClass::Block* SlotClass::Grow(std::size_t slotSize, const BlockSource& source) noexcept {
  const BlockSource* from = &source;
  void* memory = from->acquire();
  if (memory == nullptr) memory = (from = &kHeapBlocks)->acquire();
  if (memory == nullptr) return nullptr;
  Block* block = new (memory) Block;
  block->owner = this;
  block->source = from;
  block->slotSize = slotSize;
  block->capacity = (kBlockSize - sizeof(Block)) / slotSize;
  List(block);
  return block;
}

void SlotClass::List(Block* block) noexcept {
  block->previous = nullptr;
  block->next = withRoom_;
  if (withRoom_ != nullptr) withRoom_->previous = block;
  withRoom_ = block;
}

void SlotClass::Unlist(Block* block) noexcept {
  (block->previous != nullptr ? block->previous->next : withRoom_) = block->next;
  if (block->next != nullptr) block->next->previous = block->previous;
}

RecordPool::Place RecordPool::PlaceOf(std::size_t size) noexcept {
  static_assert(std::is_trivially_destructible_v<RecordPool>);
  if (size <= kFineEnd) {
    const std::size_t steps = size == 0 ? 1 : (size + kFine - 1) / kFine;
    return {steps - 1, steps * kFine};
  }
  if (size <= kMediumEnd) {
    const std::size_t slotSize = RoundUp(size, kMedium);
    return {kFineClasses + (slotSize - kFineEnd) / kMedium - 1, slotSize};
  }
  const std::size_t slotSize = RoundUp(size, kCoarse);
  return {kFineClasses + kMediumClasses + (slotSize - kMediumEnd) / kCoarse - 1, slotSize};
}

void* RecordPool::Allocate(std::size_t size) noexcept {
  if (size <= kLargestSlot) {
    const Place place = PlaceOf(size);
    return classes_[place.rank].Take(place.slotSize, *source_.load(std::memory_order_acquire));
  }
  using Block = SlotClass::Block;
  if (size > std::numeric_limits<std::size_t>::max() / 2) return nullptr;
  void* memory = ::operator new (sizeof(Block) + size, std::align_val_t{kBlockSize}, std::nothrow);
  return memory == nullptr ? nullptr : new (memory) Block + 1;
}

void RecordPool::Free(void* slot) noexcept {
  if (slot == nullptr) return;
  SlotClass::Block* block = SlotClass::Block::Of(slot);
  if (block->owner != nullptr) return block->owner->PutBack(block, slot);
  ReleaseToHeap(block);
}

}  // namespace qv
