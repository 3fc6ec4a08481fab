#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/ToolInformation.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <vector>

namespace {

// Built before and destroyed after everything that a test touches.
struct LateOwner {
  std::vector<PartInformation*> parts;
  ~LateOwner() {
    for (PartInformation* part : parts) delete part;
    delete new ToolInformation;
  }
} lateOwner;

TEST(RecordStorageTest, RecordsMayOutliveStaticObjects) {
  for (int rank = 0; rank < 1000; ++rank) lateOwner.parts.push_back(new PartInformation);
  EXPECT_EQ(lateOwner.parts.back()->GetPartQuantity(), 1);
}

TEST(RecordStorageTest, EveryFormOfNewGivesAWorkingRecord) {
  delete new PartInformation;
  delete new (std::nothrow) PartInformation;
  delete static_cast<PartInformation*>(nullptr);

  alignas(PartInformation) unsigned char place[sizeof(PartInformation)];
  auto* placed = new (place) PartInformation;
  EXPECT_EQ(static_cast<void*>(placed), place);
  placed->~PartInformation();

  for (const std::size_t count : {0u, 1u, 2u, 7u, 500u}) {
    const std::unique_ptr<MatLibraryInfo[]> entries(new MatLibraryInfo[count]);
    const std::unique_ptr<PartInformation[]> parts(new (std::nothrow) PartInformation[count]);
    for (std::size_t rank = 0; rank < count; ++rank) {
      entries[rank].MaterialCode = "a code that does not lie inside the object";
      parts[rank].SetPartQuantity(static_cast<int>(rank));
    }
    for (std::size_t rank = 0; rank < count; ++rank)
      EXPECT_EQ(parts[rank].GetPartQuantity(), static_cast<int>(rank));
  }
}

TEST(RecordStorageTest, AClassOfTheHostsOwnMayDerive) {
  struct HostPart : PartInformation {
    std::vector<int> more{1, 2, 3};
  };
  std::vector<std::unique_ptr<HostPart>> parts;
  for (int rank = 0; rank < 100; ++rank) parts.push_back(std::make_unique<HostPart>());
  for (const auto& part : parts) EXPECT_EQ(part->more.size(), 3u);
}

}  // namespace
