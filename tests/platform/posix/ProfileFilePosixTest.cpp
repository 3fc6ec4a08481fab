#include "platform/ProfileFile.h"
#include "tests/support/CaseFile.h"
#include "tests/support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The file is the host's: one value changes, and not a byte beside it.
TEST(ProfileFilePosixTest, ChangesNothingButTheValue) {
  FakeFileSystem files;
  for (const auto& row : ReadTable("platform/tables/profile-changes.table")) {
    files.Contents["a.ini"] = row[1];
    EXPECT_TRUE(qv::WriteProfileText("a.ini", "S", "K", "new"));
    EXPECT_EQ(files.Contents["a.ini"], row[2]) << row[0];
  }
}

TEST(ProfileFilePosixTest, RefusesValuesThatWouldTearTheFile) {
  FakeFileSystem files;
  files.Contents["a.ini"] = "[S]\nK=old\n";
  for (const std::string& value : {std::string("a\nb"), std::string("a\r\n[T]"), std::string("a\0b", 3)}) {
    EXPECT_FALSE(qv::WriteProfileText("a.ini", "S", "K", value));
  }
  EXPECT_EQ(files.Contents["a.ini"], "[S]\nK=old\n");

  const std::string utf16("\xFF\xFE[\0S\0]\0", 8);
  files.Contents["a.ini"] = utf16;
  EXPECT_FALSE(qv::WriteProfileText("a.ini", "S", "K", "new"));
  EXPECT_EQ(files.Contents["a.ini"], utf16);
}

TEST(ProfileFilePosixTest, KeepsTheOldFileWhateverCallFails) {
  bool written = false;
  ForEachFailure(
      {{"a.ini", "[S]\nK=old\n"}},
      [&](FakeFileSystem&) { written = qv::WriteProfileText("a.ini", "S", "K", "new"); },
      [&](FakeFileSystem& files) {
        EXPECT_EQ(files.Contents["a.ini"], written ? "[S]\nK=new\n" : "[S]\nK=old\n");
      });
  EXPECT_TRUE(written);
}

}  // namespace
