#include "records/RecordPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <limits>
#include <mutex>
#include <new>
#include <random>
#include <thread>
#include <vector>

namespace {

using qv::kBlockSize;
using qv::RecordPool;

// A source that counts, and that can run dry.
std::atomic<int> blocksOut = 0;
std::atomic<int> blocksGiven = 0;
std::atomic<bool> isDry = false;

void* AcquireCounted() noexcept {
  if (isDry) return nullptr;
  ++blocksOut;
  ++blocksGiven;
  return qv::kHeapBlocks.acquire();
}
void ReleaseCounted(void* block) noexcept {
  --blocksOut;
  qv::kHeapBlocks.release(block);
}
const qv::BlockSource kCounted{AcquireCounted, ReleaseCounted};

// Pools are never torn down, so each lives as long as the program.
template <int Number>
RecordPool& CountedPool() {
  static constinit RecordPool pool;
  pool.SetSource(kCounted);
  blocksOut = 0;
  blocksGiven = 0;
  isDry = false;
  return pool;
}

struct Slot {
  unsigned char* memory;
  std::size_t size;
  unsigned char mark;

  void Fill() const { std::memset(memory, mark, size); }
  bool IsWhole() const {
    return std::all_of(memory, memory + size, [this](unsigned char byte) { return byte == mark; });
  }
};

Slot TakeSlot(RecordPool& pool, std::size_t size, std::size_t seed) {
  const Slot slot{static_cast<unsigned char*>(pool.Allocate(size)), size, static_cast<unsigned char>(seed)};
  if (slot.memory == nullptr) throw std::bad_alloc();
  slot.Fill();
  return slot;
}

TEST(RecordPoolTest, SlotsOfEverySizeAreAlignedAndApart) {
  RecordPool& pool = CountedPool<0>();
  const std::vector<std::size_t> sizes = {0,    1,    15,    16,    17,    56,     1023,
                                          1024, 1025, 1088,  2096,  6208,  8191,   8192,
                                          8193, 9216, 65535, 65536, 65537, 100000, 2 * kBlockSize};
  std::vector<Slot> slots;
  for (unsigned round = 0; round < 3; ++round)
    for (const std::size_t size : sizes) slots.push_back(TakeSlot(pool, size, slots.size()));
  for (const Slot& slot : slots) {
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(slot.memory) % 16, 0u) << slot.size;
    EXPECT_TRUE(slot.IsWhole()) << slot.size;
    RecordPool::Free(slot.memory);
  }
}

TEST(RecordPoolTest, ASizeBeyondMemoryGivesNull) {
  RecordPool& pool = CountedPool<1>();
  EXPECT_EQ(pool.Allocate(std::numeric_limits<std::size_t>::max()), nullptr);
  EXPECT_EQ(pool.Allocate(std::numeric_limits<std::size_t>::max() - 64), nullptr);
  RecordPool::Free(nullptr);
}

TEST(RecordPoolTest, BlocksGoBackWithTheirLastSlotButForASpare) {
  RecordPool& pool = CountedPool<2>();
  for (const unsigned order : {0u, 1u, 2u}) {
    std::vector<void*> slots(10 * kBlockSize / 6208);
    for (void*& slot : slots) slot = pool.Allocate(6208);
    EXPECT_GE(blocksOut, 10);
    EXPECT_LE(blocksOut, 11);
    if (order == 1) std::reverse(slots.begin(), slots.end());
    if (order == 2) std::shuffle(slots.begin(), slots.end(), std::mt19937(1));
    for (void* slot : slots) RecordPool::Free(slot);
    EXPECT_LE(blocksOut, 1) << order;
  }
}

TEST(RecordPoolTest, FreedSlotsAreUsedAgain) {
  RecordPool& pool = CountedPool<3>();
  std::vector<void*> slots(5 * kBlockSize / 6208);
  for (void*& slot : slots) slot = pool.Allocate(6208);
  const int given = blocksGiven;
  for (unsigned round = 0; round < 4; ++round) {
    for (std::size_t rank = round % 2; rank < slots.size(); rank += 2) RecordPool::Free(slots[rank]);
    for (std::size_t rank = round % 2; rank < slots.size(); rank += 2) slots[rank] = pool.Allocate(6208);
  }
  EXPECT_EQ(blocksGiven, given);
  for (void* slot : slots) RecordPool::Free(slot);
}

TEST(RecordPoolTest, OneSlotAtATimeKeepsItsBlock) {
  RecordPool& pool = CountedPool<4>();
  for (unsigned round = 0; round < 1000; ++round) RecordPool::Free(TakeSlot(pool, 56, round).memory);
  EXPECT_EQ(blocksGiven, 1);
}

TEST(RecordPoolTest, ADrySourceIsReplacedByTheHeap) {
  RecordPool& pool = CountedPool<5>();
  isDry = true;
  std::vector<Slot> slots;
  for (unsigned rank = 0; rank < 1000; ++rank) slots.push_back(TakeSlot(pool, 6208, rank));
  EXPECT_EQ(blocksGiven, 0);
  isDry = false;
  for (unsigned rank = 0; rank < 1000; ++rank) slots.push_back(TakeSlot(pool, 6208, rank));
  EXPECT_GT(blocksGiven, 0);
  for (const Slot& slot : slots) {
    EXPECT_TRUE(slot.IsWhole());
    RecordPool::Free(slot.memory);
  }
  EXPECT_LE(blocksOut, 1);
}

// Threads take slots of mixed sizes and give back what others took.
class Exchange {
 public:
  void Put(const Slot& slot) {
    const std::lock_guard guard(mutex_);
    slots_.push_back(slot);
  }
  bool Take(std::size_t seed, Slot& slot) {
    const std::lock_guard guard(mutex_);
    if (slots_.size() < 200) return false;
    std::swap(slots_[seed % slots_.size()], slots_.back());
    slot = slots_.back();
    slots_.pop_back();
    return true;
  }
  std::vector<Slot>& Rest() { return slots_; }

 private:
  std::mutex mutex_;
  std::vector<Slot> slots_;
};

TEST(RecordPoolTest, ThreadsFreeWhatOthersTook) {
  RecordPool& pool = CountedPool<6>();
  Exchange exchange;
  std::atomic<int> broken = 0;
  const auto work = [&](unsigned seed) {
    constexpr std::size_t kSizes[] = {56, 64, 2096, 2280, 3264, 3640, 6208, 12424, 70000};
    std::mt19937 random(seed);
    for (int round = 0; round < 20000; ++round) {
      // Large ones seldom, or the test does nothing but fill memory.
      const std::size_t kind = random() % 100 == 0 ? random() % std::size(kSizes) : random() % 2;
      exchange.Put(TakeSlot(pool, kSizes[kind], random()));
      Slot slot;
      if (!exchange.Take(random(), slot)) continue;
      if (!slot.IsWhole()) ++broken;
      RecordPool::Free(slot.memory);
    }
  };
  std::vector<std::thread> threads;
  for (unsigned seed = 1; seed <= 4; ++seed) threads.emplace_back(work, seed);
  for (std::thread& thread : threads) thread.join();
  for (const Slot& slot : exchange.Rest()) {
    if (!slot.IsWhole()) ++broken;
    RecordPool::Free(slot.memory);
  }
  EXPECT_EQ(broken, 0);
}

}  // namespace
