#include "dialogs/SampleHeaders.h"

#include "dialogs/HeaderNames.h"
#include "tests/support/FakeSpreadsheet.h"
#include "tests/support/FormatText.h"
#include "tests/support/Host.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(SampleHeadersTest, NothingIsToldOfWhatIsNoSample) {
  const TemporaryFolder folder;
  const host::Boxes boxes;
  for (const char* name : {"a.Txt", "a.txt.bak", "txt", "blank.csv"}) {
    folder.Write(name, std::string(name).starts_with("blank") ? "\n" : "a,b\n1,2\n");
    EXPECT_EQ(Joined(qv::ReadSampleHeaders(folder / name, {})), "") << name;
  }
  EXPECT_EQ(Joined(qv::ReadSampleHeaders("", {})), "");
  EXPECT_EQ(Joined(qv::ReadSampleHeaders("folder.csv/file", {})), "");
  EXPECT_TRUE(boxes.all.empty());
}

TEST(SampleHeadersTest, AWorkbookNeedsItsApplication) {
  const TemporaryFolder folder;
  FakeSpreadsheet office;
  office.Installed = false;
  const host::Boxes boxes;
  EXPECT_EQ(Joined(qv::ReadSampleHeaders(folder.Write("jobs.xls", "x"), {})), "");
  EXPECT_EQ(boxes.all, std::vector<std::string>{"Error"});
}

TEST(SampleHeadersTest, TwoNamesAreKeptButNotShown) {
  qv::HeaderNames headers;
  std::vector<std::string> names = {"A", "GroupName", "groupname", "PartPositionInGroup", "A", ""};
  headers.Set(names);
  EXPECT_TRUE(names.empty());
  EXPECT_EQ(headers.All().size(), 6U);
  EXPECT_EQ(headers.Shown(), (std::vector<std::string>{"A", "groupname", "A", ""}));
  names = {"B"};
  headers.Set(names);
  EXPECT_EQ(headers.All(), std::vector<std::string>{"B"});
}

}  // namespace
