// Records made with new: by either side, and by modules that come and go.

#include "tests/records/LoadedModule.h"

#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/PartInformation.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace {

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
    for (std::size_t index = 0; index < count; ++index) {
      entries[index].MaterialCode = "a code that does not lie inside the object";
      parts[index].SetPartQuantity(static_cast<int>(index));
    }
    for (std::size_t index = 0; index < count; ++index)
      EXPECT_EQ(parts[index].GetPartQuantity(), static_cast<int>(index));
  }
}

// As an application does that loads the library for each job: what a round keeps adds up.
TEST(RecordStorageTest, NothingIsLeftOfAnUnloadedLibrary) {
  const auto makeAndDelete = [] {
    const LoadedModule user(QV_RECORD_USER);
    auto* const use = reinterpret_cast<void (*)()>(user.Function("MakeAndDeleteRecords"));
    ASSERT_NE(use, nullptr);
    use();
    ASSERT_TRUE(LoadedModule::IsLoaded(QV_LIBRARY));
  };
  for (int round = 0; round < 5; ++round) makeAndDelete();  // what the system itself keeps once
  ASSERT_FALSE(LoadedModule::IsLoaded(QV_LIBRARY));
  [[maybe_unused]] const std::size_t before = CommittedBytes();
  for (int round = 0; round < 50; ++round) makeAndDelete();
#ifndef __SANITIZE_ADDRESS__  // it keeps what is freed, and says itself what is lost
  EXPECT_LT(CommittedBytes(), before + (std::size_t{4} << 20));
#endif
}

}  // namespace
