#include "platform/ProfileFile.h"
#include "platform/posix/ProfileText.h"
#include "tests/support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The file is the host's: one value changes, and not a byte beside it.
TEST(ProfileTextTest, ChangesNothingButTheValue) {
  const struct {
    const char* why;
    std::string before;
    std::string after;
  } cases[] = {
      {"an empty file", "", "[S]\nK=new\n"},
      {"a value", "[S]\nK=old\n", "[S]\nK=new\n"},
      {"an empty value", "[S]\nK=\nL=1\n", "[S]\nK=new\nL=1\n"},
      {"an empty value at the end of the file", "[S]\nK=", "[S]\nK=new"},
      {"the host's spelling and spacing stay", " [s] ; c\r\n  k = old \r\nx=1\r\n",
       " [s] ; c\r\n  k = new \r\nx=1\r\n"},
      {"comments, blank lines and junk stay", "; a\n\njunk\n[S]\n# b\nK=old\n\n; c\n[T]\n; d",
       "; a\n\njunk\n[S]\n# b\nK=new\n\n; c\n[T]\n; d"},
      {"bytes of another code page stay", "[F\xF6]\nx=\xFF\n[S]\nK=old\n", "[F\xF6]\nx=\xFF\n[S]\nK=new\n"},
      {"the key of another section stays", "[T]\nK=1\n[S]\nK=old\n[U]\nK=2\n",
       "[T]\nK=1\n[S]\nK=new\n[U]\nK=2\n"},
      {"only the first of two keys", "[S]\nK=old\nK=old\n", "[S]\nK=new\nK=old\n"},
      {"a commented key is no key", "[S]\n;K=1\n#K=1\n", "[S]\n;K=1\n#K=1\nK=new\n"},
      {"a missing key goes to its section's end", "[S]\nL=1\n\n[T]\nM=1\n", "[S]\nL=1\nK=new\n\n[T]\nM=1\n"},
      {"behind a header alone", "[S]\n[T]\n", "[S]\nK=new\n[T]\n"},
      {"behind a last line without an end", "[S]\nL=1", "[S]\nL=1\nK=new\n"},
      {"a missing section goes to the end", "[T]\r\nM=1", "[T]\r\nM=1\r\n[S]\r\nK=new\r\n"},
      {"a section that goes on later", "[S]\nL=1\n[T]\n[S]\nK=old\n", "[S]\nL=1\n[T]\n[S]\nK=new\n"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    EXPECT_EQ(qv::SetProfileKey(test.before, "S", "K", "new"), test.after);
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
