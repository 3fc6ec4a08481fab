#include "platform/LargeBlock.h"

#include <windows.h>

namespace qv {

// Without huge pages, which are for privileged users here.
void* AcquireLargeBlock(std::size_t size) noexcept {
  return VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void ReleaseLargeBlock(void* block, std::size_t) noexcept { VirtualFree(block, 0, MEM_RELEASE); }

}  // namespace qv
