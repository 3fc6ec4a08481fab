#include "platform/FileSystem.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

namespace {

using qv::OpenMode;
using qv::PlatformFiles;

TEST(FileSystemTest, SaysWhyACallFailed) {
  const TemporaryFolder folder;
  folder.Write("file", "x");
  std::filesystem::create_directory(folder / "full");
  folder.Write("full/file", "x");
  const std::string none = folder / "none", file = folder / "file", full = folder / "full";
  qv::FileSystem& files = PlatformFiles();
  std::string reason;
  const struct {
    const char* why;
    std::function<bool()> call;
    const char* reason;  // as a posix system says it
  } cases[] = {
      {"a missing file", [&] { return !!files.Open(none, OpenMode::Read, reason); },
       "No such file or directory"},
      {"no path", [&] { return !!files.Open("", OpenMode::Read, reason); }, "No such file or directory"},
      {"a folder for reading", [&] { return !!files.Open(full, OpenMode::Read, reason); }, "Is a directory"},
      {"a folder for writing", [&] { return !!files.Open(full, OpenMode::Write, reason); }, "Is a directory"},
      {"a missing folder", [&] { return !!files.Open(none + "/file", OpenMode::Write, reason); },
       "No such file or directory"},
      {"a file as a folder", [&] { return !!files.Open(file + "/file", OpenMode::Read, reason); },
       "Not a directory"},
      {"removing nothing", [&] { return files.Remove(none, reason); }, "No such file or directory"},
      {"replacing by nothing", [&] { return files.Replace(none, file, reason); },
       "No such file or directory"},
      {"replacing a folder", [&] { return files.Replace(file, full, reason); }, "Is a directory"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    reason.clear();
    EXPECT_FALSE(test.call());
    if (qv::kLineEnd == "\n")
      EXPECT_EQ(reason, test.reason);
    else
      EXPECT_FALSE(reason.empty() || reason.ends_with('.') || reason.ends_with('\n')) << reason;
  }
  EXPECT_EQ(TemporaryFolder::Read(file), "x");
}

TEST(FileSystemTest, PassesEveryByteThrough) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) bytes += static_cast<char>(i % 256);
  std::string reason;
  const auto out = PlatformFiles().Open(folder / "a", OpenMode::Write, reason);
  EXPECT_TRUE(out->Write(bytes) && out->Flush() && out->Close());
  EXPECT_EQ(TemporaryFolder::Read(folder / "a"), bytes);
  EXPECT_EQ(qv::ReadFile(folder / "a", reason), bytes);
  EXPECT_EQ(qv::ReadFile(folder / "a", reason, 300), bytes.substr(0, 300));
  EXPECT_EQ(qv::ReadFile(folder / "none", reason), std::nullopt);
  EXPECT_NE(reason, "");
}

TEST(FileSystemTest, KnowsTheRunningProgram) {
  EXPECT_TRUE(std::filesystem::path(qv::ProgramPath()).is_absolute());
  EXPECT_EQ(std::filesystem::path(qv::ProgramPath()).stem(), "platform_tests");
}

}  // namespace
