#include "platform/ReplacingFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <regex>
#include <string>

namespace {

using qv::OpenMode;
using qv::PlatformFiles;
using qv::ReplacingFile;
using qv::WorkingPlace;

bool Rewrite(const std::string& target, const std::string& content,
             WorkingPlace place = WorkingPlace::BesideTarget) {
  ReplacingFile file(target, place);
  return file.Open() && file.Write(content) && file.Commit();
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }

TEST(WorkingFileTest, WorksInAFolderNamedAfterTheSecondAtTheDrivesRoot) {
  const TemporaryFolder folder;
  const std::string target = folder.Write("job list.csv", "old");
  std::string workingFolder;
  {
    ReplacingFile file(target, WorkingPlace::WorkingFolder);
    const std::regex pattern(R"(C:\\\d{4}-\d{1,2}-\d{1,2}-\d{1,2}-\d{1,2}-\d{1,2}\\job list\.csv)");
    EXPECT_TRUE(std::regex_match(file.WorkingPath(), pattern)) << file.WorkingPath();
    workingFolder = FolderOf(file.WorkingPath());
    EXPECT_TRUE(file.Open() && file.Write("new"));
    EXPECT_TRUE(std::filesystem::is_directory(workingFolder));
    EXPECT_TRUE(file.Commit());
  }
  EXPECT_FALSE(std::filesystem::exists(workingFolder));
  EXPECT_EQ(TemporaryFolder::Read(target), "new");
}

// Calls within one second share the folder, so the second of two files of one name goes elsewhere.
TEST(WorkingFileTest, KeepsFilesOfOneNameApart) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "a");
  std::filesystem::create_directory(folder / "b");
  const std::string first = folder.Write("a\\x.csv", "old a"), second = folder.Write("b\\x.csv", "old b");
  {
    ReplacingFile one(first, WorkingPlace::WorkingFolder), two(second, WorkingPlace::WorkingFolder);
    EXPECT_NE(one.WorkingPath(), two.WorkingPath());
    EXPECT_TRUE(one.Open() && two.Open() && one.Write("new a") && two.Write("new b"));
    EXPECT_TRUE(two.Commit() && one.Commit());
  }
  EXPECT_EQ(TemporaryFolder::Read(first), "new a");
  EXPECT_EQ(TemporaryFolder::Read(second), "new b");
  for (const auto& entry : std::filesystem::directory_iterator("C:\\")) {
    EXPECT_FALSE(std::regex_match(entry.path().filename().string(), std::regex(R"(\d+(-\d+){5})")))
        << entry.path();
  }
}

TEST(WorkingFileTest, TakesOverWhatAKilledRunLeft) {
  const TemporaryFolder folder;
  const std::string target = folder.Write("x.csv", "old");
  std::set<std::string> left;
  {
    const ReplacingFile one(target, WorkingPlace::BesideTarget), two(target, WorkingPlace::BesideTarget);
    left = {one.WorkingPath(), two.WorkingPath()};
  }
  for (const std::string& path : left) folder.Write(path.substr(FolderOf(path).size() + 1), "half");
  ASSERT_EQ(folder.Names().size(), 3U);
  EXPECT_TRUE(Rewrite(target, "new"));
  EXPECT_EQ(folder.Names(), std::set<std::string>{"x.csv"});
  EXPECT_EQ(TemporaryFolder::Read(target), "new");
}

TEST(WorkingFileTest, KeepsWhatTheOldFileIsCalled) {
  const TemporaryFolder folder;
  folder.Write("A Long Name.csv", "old");
  char shortPath[MAX_PATH] = "";
  GetShortPathNameA((folder / "A Long Name.csv").c_str(), shortPath, MAX_PATH);
  for (const std::string& path : {folder / "a long name.CSV", std::string(shortPath)}) {
    EXPECT_TRUE(Rewrite(path, path));
    EXPECT_EQ(folder.Names(), std::set<std::string>{"A Long Name.csv"}) << path;
    EXPECT_EQ(TemporaryFolder::Read(folder / "A Long Name.csv"), path);
  }
}

TEST(WorkingFileTest, RefusesAWriteProtectedFile) {
  const TemporaryFolder folder;
  const std::string target = folder.Write("x.csv", "old");
  SetFileAttributesA(target.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(Rewrite(target, "new"));
  SetFileAttributesA(target.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(TemporaryFolder::Read(target), "old");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"x.csv"});
}

TEST(WorkingFileTest, WritesADeviceInPlace) {
  ReplacingFile file("NUL", WorkingPlace::BesideTarget);
  EXPECT_EQ(file.WorkingPath(), "NUL");
  EXPECT_TRUE(file.Open() && file.Write("x") && file.Commit()) << file.Reason();
}

TEST(FileSystemTest, OverwritesAHiddenFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("x", "a longer text");
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
  std::string reason;
  const auto file = PlatformFiles().Open(path, OpenMode::Write, reason);
  ASSERT_NE(file, nullptr) << reason;
  EXPECT_TRUE(file->Write("short") && file->Flush() && file->Close());
  EXPECT_EQ(TemporaryFolder::Read(path), "short");
}

}  // namespace
