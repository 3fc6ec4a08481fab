#include "platform/LargeBlock.h"

#include <windows.h>

#include <cstdint>

namespace qv {

namespace {

void* Commit(void* address, std::size_t size) {
  return VirtualAlloc(address, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

bool IsAligned(void* memory, std::size_t size) {
  return reinterpret_cast<std::uintptr_t>(memory) % size == 0;
}

// An aligned address that was free a moment ago; null when twice the size does not fit anywhere.
void* FindRoom(std::size_t size) {
  void* room = VirtualAlloc(nullptr, 2 * size, MEM_RESERVE, PAGE_NOACCESS);
  if (room == nullptr) return nullptr;
  VirtualFree(room, 0, MEM_RELEASE);
  return reinterpret_cast<void*>((reinterpret_cast<std::uintptr_t>(room) + size - 1) / size * size);
}

}  // namespace

// Large pages are for privileged users here.
void* AcquireLargeBlock(std::size_t size) noexcept {
  void* block = Commit(nullptr, size);
  if (block == nullptr || IsAligned(block, size)) return block;
  VirtualFree(block, 0, MEM_RELEASE);
  // A part of a reservation cannot be given back, so another thread may take the room that was found.
  constexpr int kTries = 16;
  for (int tries = 0; tries < kTries; ++tries) {
    void* room = FindRoom(size);
    if (room == nullptr) return nullptr;
    block = Commit(room, size);
    if (block != nullptr) return block;
  }
  return nullptr;
}

void ReleaseLargeBlock(void* block, std::size_t) noexcept { VirtualFree(block, 0, MEM_RELEASE); }

}  // namespace qv
