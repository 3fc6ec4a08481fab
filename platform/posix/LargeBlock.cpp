#include "platform/LargeBlock.h"

#include <sys/mman.h>

#include <cstdint>

namespace qv {

namespace {

char* Map(std::size_t size) {
  void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return memory == MAP_FAILED ? nullptr : static_cast<char*>(memory);
}

bool IsAligned(const char* memory, std::size_t size) {
  return reinterpret_cast<std::uintptr_t>(memory) % size == 0;
}

void Unmap(char* memory, std::size_t size) {
  if (size > 0) munmap(memory, size);
}

// Maps twice as much and unmaps what lies before and after the aligned part.
char* MapAndTrim(std::size_t size) {
  char* memory = Map(2 * size);
  if (memory == nullptr) return nullptr;
  const std::size_t before = (size - reinterpret_cast<std::uintptr_t>(memory) % size) % size;
  Unmap(memory, before);
  Unmap(memory + before + size, size - before);
  return memory + before;
}

}  // namespace

void* AcquireLargeBlock(std::size_t size) noexcept {
  // Aligned, as a huge page covers only a range that is. Systems place mappings side by side, so that after
  // an aligned one the next is aligned as well.
  char* block = Map(size);
  if (block != nullptr && !IsAligned(block, size)) {
    Unmap(block, size);
    block = MapAndTrim(size);
  }
#ifdef MADV_HUGEPAGE
  if (block != nullptr) madvise(block, size, MADV_HUGEPAGE);
#endif
  return block;
}

void ReleaseLargeBlock(void* block, std::size_t size) noexcept { munmap(block, size); }

}  // namespace qv
