#include "platform/ReplacingFile.h"

#include "tests/support/FakeFileSystem.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using qv::ReplacingFile;
using qv::WorkingPlace;

struct Outcome {
  bool written = false;
  std::string reason;
};

Outcome Rewrite(const std::string& target, std::initializer_list<std::string_view> pieces,
                WorkingPlace place = WorkingPlace::BesideTarget) {
  ReplacingFile file(target, place);
  bool written = file.Open();
  for (const std::string_view piece : pieces) written = file.Write(piece) && written;
  written = file.Commit() && written;
  return {written, file.Reason()};
}

TEST(ReplacingFileTest, KeepsTheOldFileWhateverCallFails) {
  for (const bool existed : {true, false}) {
    std::map<std::string, std::string> start;
    if (existed) start["a.csv"] = "old";
    Outcome outcome;
    const int runs = ForEachFailure(
        start,
        [&](FakeFileSystem&) {
          outcome = Rewrite("a.csv", {"new ", "content"});
        },
        [&](FakeFileSystem& files) {
          const std::string whole = outcome.written ? "new content" : existed ? "old" : "";
          EXPECT_EQ(files.Contents.contains("a.csv") ? files.Contents["a.csv"] : "", whole);
          EXPECT_EQ(outcome.written, !files.Failed());
          EXPECT_EQ(outcome.reason, outcome.written ? "" : FakeFileSystem::kReason);
          EXPECT_FALSE(outcome.written && files.Contents.size() > 1);
        });
    EXPECT_GE(runs, 14);  // each of prepare, open, two writes, flush, close, replace
  }
}

TEST(ReplacingFileTest, RemovesTheWorkingFileUnlessItTookTheTargetsPlace) {
  FakeFileSystem files;
  files.Contents["a.csv"] = "old";
  files.FailAt(1, "replace");
  EXPECT_FALSE(Rewrite("a.csv", {"new"}).written);
  {
    ReplacingFile abandoned("a.csv", WorkingPlace::BesideTarget);
    abandoned.Open();
  }
  EXPECT_EQ(files.Contents, (std::map<std::string, std::string>{{"a.csv", "old"}}));
  EXPECT_TRUE(Rewrite("a.csv", {"new"}).written);
  EXPECT_EQ(files.Contents, (std::map<std::string, std::string>{{"a.csv", "new"}}));
}

TEST(ReplacingFileTest, MakesTheContentDurableBeforeItReplaces) {
  FakeFileSystem files;
  Rewrite("a", {"x"});
  const std::string working = FakeFileSystem::WorkingPathOf("a");
  EXPECT_EQ(files.Calls, (std::vector<std::string>{"prepare a", "open-write " + working, "write 1 " + working,
                                                   "flush " + working, "close " + working, "replace a"}));
}

TEST(ReplacingFileTest, TakesWhatAnotherComponentWrote) {
  FakeFileSystem files;
  {
    ReplacingFile nothingWritten("a.xls", WorkingPlace::BesideTarget);
    EXPECT_FALSE(nothingWritten.Commit());
    EXPECT_NE(nothingWritten.Reason(), "");
  }
  ReplacingFile file("a.xls", WorkingPlace::BesideTarget);
  files.Contents[file.WorkingPath()] = "workbook";
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(files.Contents["a.xls"], "workbook");
  EXPECT_FALSE(file.Commit()) << "a second time";
}

TEST(ReplacingFileTest, WorksInEitherPlaceAndLeavesNothingBehind) {
  for (const WorkingPlace place : {WorkingPlace::BesideTarget, WorkingPlace::WorkingFolder}) {
    const TemporaryFolder folder;
    const std::string target = folder / "jobs.csv";
    EXPECT_TRUE(Rewrite(target, {"first"}, place).written);
    EXPECT_EQ(TemporaryFolder::Read(target), "first");
    EXPECT_TRUE(Rewrite(target, {"sec", "", "ond"}, place).written);
    EXPECT_EQ(TemporaryFolder::Read(target), "second");
    {
      ReplacingFile abandoned(target, place);
      abandoned.Open();
      abandoned.Write("half");
    }
    EXPECT_EQ(TemporaryFolder::Read(target), "second");
    EXPECT_EQ(folder.Names(), std::set<std::string>{"jobs.csv"});
  }
}

TEST(ReplacingFileTest, GivesEachWriterOfAFileAPlaceOfItsOwn) {
  const TemporaryFolder folder;
  const std::string target = folder.Write("a.csv", "old");
  {
    ReplacingFile one(target, WorkingPlace::BesideTarget), two(target, WorkingPlace::BesideTarget);
    EXPECT_NE(one.WorkingPath(), two.WorkingPath());
    EXPECT_TRUE(one.Open() && two.Open() && one.Write("one") && two.Write("two"));
    EXPECT_TRUE(two.Commit());
    EXPECT_EQ(TemporaryFolder::Read(target), "two");
    EXPECT_TRUE(one.Commit());
  }
  EXPECT_EQ(TemporaryFolder::Read(target), "one");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"a.csv"});
}

TEST(ReplacingFileTest, WorksOnAPathOfTheTargetsExtension) {
  const TemporaryFolder folder;
  const ReplacingFile file(folder / "jobs.v2.xls", WorkingPlace::BesideTarget);
  EXPECT_EQ(std::filesystem::path(file.WorkingPath()).extension(), ".xls");
}

TEST(ReplacingFileTest, SaysWhyThereIsNoPlaceToWriteTo) {
  const TemporaryFolder folder;
  for (const std::string& target : {folder / "no/such/folder/a.csv", std::string()}) {
    ReplacingFile file(target, WorkingPlace::BesideTarget);
    EXPECT_FALSE(file.Open());
    EXPECT_NE(file.Reason(), "");
    EXPECT_FALSE(file.Commit());
  }
  EXPECT_FALSE(Rewrite(folder / ".", {"x"}).written) << "a folder";
  EXPECT_EQ(folder.Names().size(), 0U);
}

}  // namespace
