#include "platform/Handlers.h"

#include <gtest/gtest.h>

namespace {

TEST(MessageBoxPosixTest, PrintsALineWhereThereIsNoWindow) {
  testing::internal::CaptureStderr();
  qv::ShowMessage("100% wrong %s");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "100% wrong %s\n");
}

}  // namespace
