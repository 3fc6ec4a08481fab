#include "platform/DynamicLibrary.h"
#include "platform/Handlers.h"

#include <gtest/gtest.h>

namespace {

TEST(MessageBoxPosixTest, PrintsALineWhereThereIsNoWindow) {
  testing::internal::CaptureStderr();
  qv::ShowMessage("100% wrong %s");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "100% wrong %s\n");
}

TEST(DynamicLibraryTest, FindsNothingWhereThereIsNothing) {
  EXPECT_EQ(qv::LoadLibraryByName("no-such-library"), nullptr);
  void* const library =
      qv::LoadLibraryByName("libc");  // a linker's text file of that name is no library either
  EXPECT_TRUE(library == nullptr || qv::FindFunction(library, "no_such_function") == nullptr);
}

}  // namespace
