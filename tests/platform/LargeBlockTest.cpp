#include "platform/LargeBlock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <vector>

namespace {

TEST(LargeBlockTest, BlocksAreZeroedAndApart) {
  for (const std::size_t size : {std::size_t{64} << 10, std::size_t{2} << 20, std::size_t{8} << 20}) {
    std::vector<unsigned char*> blocks;
    for (int round = 0; round < 12; ++round) {
      auto* block = static_cast<unsigned char*>(qv::AcquireLargeBlock(size));
      ASSERT_NE(block, nullptr);
      EXPECT_TRUE(std::all_of(block, block + size, [](unsigned char byte) { return byte == 0; }));
      std::fill_n(block, size, static_cast<unsigned char>(round + 1));
      blocks.push_back(block);
      // A hole in the row of mappings, so that not every block falls into place by itself.
      if (round % 3 == 2) {
        qv::ReleaseLargeBlock(blocks[blocks.size() - 2], size);
        blocks.erase(blocks.end() - 2);
      }
    }
    std::set<unsigned char> marks;
    for (unsigned char* block : blocks) {
      EXPECT_TRUE(std::all_of(block, block + size, [block](unsigned char byte) { return byte == *block; }));
      marks.insert(*block);
      qv::ReleaseLargeBlock(block, size);
    }
    EXPECT_EQ(marks.size(), blocks.size());
  }
}

TEST(LargeBlockTest, MoreThanThereIsGivesNull) {
  constexpr std::size_t kTooMuch = std::size_t{1} << (std::numeric_limits<std::size_t>::digits - 2);
  EXPECT_EQ(qv::AcquireLargeBlock(kTooMuch), nullptr);
}

}  // namespace
