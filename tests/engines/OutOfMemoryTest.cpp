#include "engines/AttachedRecord.h"
#include "manager/CAssemblyFileMgr.h"
#include "records/PartInformation.h"
#include "support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <new>
#include <set>
#include <vector>

// Memory runs out at each allocation of a call, one after another.

namespace {

thread_local int allocationsLeft = -1;  // negative: as many as there are

}  // namespace

void* operator new(std::size_t size) {
  if (allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  if (void* const memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

constexpr int kRecords = 50;

// Attaches the records while there is memory for so many allocations a record; returns how many were
// attached.
int Attach(CAssemblyFileMgr& manager, std::vector<PartInformation*>& parts, int allocations) {
  int attached = 0;
  for (PartInformation* const part : parts) {
    allocationsLeft = allocations;
    try {
      manager.AddAndAttachPart(part);
      ++attached;
    } catch (const std::bad_alloc&) {
    }
    allocationsLeft = -1;
  }
  return attached;
}

TEST(OutOfMemory, AttachingThrowsAndLocksNobodyOut) {
  FakeFileSystem files;
  int last = 0;
  for (int allocations = 0; last < kRecords; ++allocations) {
    ASSERT_LT(allocations, 20);
    CAssemblyFileMgr manager;
    std::vector<PartInformation*> parts(kRecords);
    for (PartInformation*& part : parts) part = new PartInformation;
    auto attached = std::async(std::launch::async, Attach, std::ref(manager), std::ref(parts), allocations);
    if (attached.wait_for(std::chrono::seconds(60)) != std::future_status::ready) {
      ADD_FAILURE() << "it waits for itself";
      std::_Exit(1);  // nothing can end that thread
    }
    last = attached.get();
    char path[] = "a.csv";
    manager.ExportAssemblyFile(path);
    EXPECT_EQ(manager.GetPartsCount(), last);
    std::set<PartInformation*> taken;
    for (int index = 0; index < last; ++index) taken.insert(manager.GetPartInfoAtRank(index));
    for (PartInformation* const part : parts)
      if (!taken.contains(part)) delete part;
  }
}

}  // namespace
