#include "manager/RecordMemory.h"

#include "platform/LargeBlock.h"
#include "records/BlockSource.h"

namespace qv {

namespace {

void* Acquire() noexcept { return AcquireLargeBlock(kBlockSize); }
void Release(void* block) noexcept { ReleaseLargeBlock(block, kBlockSize); }

constexpr BlockSource kLargeBlocks{Acquire, Release};

}  // namespace

void UseLargeBlocks() noexcept { SetBlockSource(kLargeBlocks); }

}  // namespace qv
