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
  qv::FileSystem& files = PlatformFiles();
  std::string reason;
  const struct {
    const char* why;
    std::function<bool()> call;
    const char* reason;
  } cases[] = {
      {"a missing file", [&] { return !!files.Open(folder / "none", OpenMode::Read, reason); },
       "No such file or directory"},
      {"a folder for reading", [&] { return !!files.Open(folder / "full", OpenMode::Read, reason); },
       "Is a directory"},
      {"a folder for writing", [&] { return !!files.Open(folder / "full", OpenMode::Write, reason); },
       "Is a directory"},
      {"a missing folder", [&] { return !!files.Open(folder / "none/file", OpenMode::Write, reason); },
       "No such file or directory"},
      {"a file as a folder", [&] { return !!files.Open(folder / "file/file", OpenMode::Read, reason); },
       "Not a directory"},
      {"removing nothing", [&] { return files.Remove(folder / "none", reason); },
       "No such file or directory"},
      {"removing a folder with content", [&] { return files.RemoveFolder(folder / "full", reason); },
       "Directory not empty"},
      {"folders below a file", [&] { return files.CreateFolders(folder / "file/a/b", reason); },
       "Not a directory"},
      {"replacing by nothing", [&] { return files.Replace(folder / "none", folder / "file", reason); },
       "No such file or directory"},
      {"replacing a folder", [&] { return files.Replace(folder / "file", folder / "full", reason); },
       "Is a directory"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    reason.clear();
    EXPECT_FALSE(test.call());
    EXPECT_EQ(reason, test.reason);
  }
  EXPECT_EQ(TemporaryFolder::Read(folder / "file"), "x");
}

TEST(FileSystemTest, SaysWhyAWriteOrAReadFailed) {
  std::string reason;
  const auto full = PlatformFiles().Open("/dev/full", OpenMode::Write, reason);
  ASSERT_NE(full, nullptr) << reason;
  EXPECT_FALSE(full->Write("x"));
  EXPECT_EQ(full->Reason(), "No space left on device");
  EXPECT_TRUE(full->Flush()) << "a device has nothing to make durable";

  const TemporaryFolder folder;
  const auto writeOnly = PlatformFiles().Open(folder / "a", OpenMode::Write, reason);
  char byte = 0;
  EXPECT_EQ(writeOnly->Read(&byte, 1), -1);
  EXPECT_EQ(writeOnly->Reason(), "Bad file descriptor");
  EXPECT_TRUE(writeOnly->Close());
  EXPECT_FALSE(writeOnly->Write("behind the end"));
}

TEST(FileSystemTest, PassesEveryByteThrough) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) bytes += static_cast<char>(i % 256);
  std::string reason;
  const auto out = PlatformFiles().Open(folder / "a", OpenMode::Write, reason);
  EXPECT_TRUE(out->Write(bytes) && out->Flush() && out->Close());
  EXPECT_EQ(TemporaryFolder::Read(folder / "a"), bytes);

  const auto in = PlatformFiles().Open(folder / "a", OpenMode::Read, reason);
  std::string read(bytes.size() + 1, '\0');
  EXPECT_EQ(in->Read(read.data(), read.size()), static_cast<std::ptrdiff_t>(bytes.size()));
  EXPECT_EQ(in->Read(read.data(), read.size()), 0);
  read.pop_back();
  EXPECT_EQ(read, bytes);
}

TEST(FileSystemTest, MakesAndRemovesFoldersInOneGo) {
  const TemporaryFolder folder;
  std::string reason;
  EXPECT_TRUE(PlatformFiles().CreateFolders(folder / "a/b/c", reason));
  EXPECT_TRUE(PlatformFiles().CreateFolders(folder / "a/b/c", reason)) << "they are there already";
  EXPECT_TRUE(PlatformFiles().Exists(folder / "a/b/c"));
  EXPECT_TRUE(PlatformFiles().RemoveFolder(folder / "a/b/c", reason));
  EXPECT_FALSE(PlatformFiles().Exists(folder / "a/b/c"));
}

TEST(FileSystemTest, KnowsTheRunningProgram) {
  EXPECT_TRUE(std::filesystem::path(qv::ProgramPath()).is_absolute());
  EXPECT_EQ(std::filesystem::path(qv::ProgramPath()).filename(), "platform_tests");
}

}  // namespace
