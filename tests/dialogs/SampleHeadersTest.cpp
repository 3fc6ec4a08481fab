#include "dialogs/SampleHeaders.h"

#include "dialogs/HeaderNames.h"
#include "tests/dialogs/FormatFileText.h"
#include "tests/support/FakeSpreadsheet.h"
#include "tests/support/Host.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

TEST(SampleHeadersTest, WhatASampleGives) {
  const TemporaryFolder folder;
  const std::string rows = "title\nName;Qty\tDue\n1;2;3\n";
  const struct {
    const char* fileName;
    const char* bytes;  // null: no file
    int startLine;
    std::string headers;
  } cases[] = {
      {"a.txt", rows.c_str(), 2, "Name Qty Due"},
      {"a.txt", rows.c_str(), 1, "title"},
      {"a.txt", rows.c_str(), 3, "1 2 3"},
      {"a.txt", rows.c_str(), 4, ""},
      {"a.csv", "\"Name\",Qty,Due\n", 1, "Name Qty Due"},
      {"A.CSV", "Name,Qty\n", 1, ""},
      {"a.Txt", rows.c_str(), 2, ""},
      {"a.txt.bak", rows.c_str(), 2, ""},
      {"txt", rows.c_str(), 2, ""},
      {"missing.txt", nullptr, 2, ""},
      {"empty.csv", "", 1, ""},
      {"blank.csv", "\n", 1, ""},
  };
  const host::Boxes boxes;
  for (const auto& row : cases) {
    SCOPED_TRACE(row.fileName);
    if (row.bytes != nullptr) folder.Write(row.fileName, row.bytes);
    OptionForm form;
    form.StartLine = row.startLine;
    form.Delimiters = "Tab,Semicolon,";
    EXPECT_EQ(Joined(qv::ReadSampleHeaders(folder / row.fileName, form)), row.headers);
  }
  EXPECT_EQ(Joined(qv::ReadSampleHeaders("", {})), "");
  EXPECT_EQ(Joined(qv::ReadSampleHeaders("folder.csv/file", {})), "");
  EXPECT_TRUE(boxes.all.empty());
}

TEST(SampleHeadersTest, AWorkbookGivesItsHeaderRow) {
  const TemporaryFolder folder;
  FakeSpreadsheet office;
  const host::Boxes boxes;
  const std::string path = folder / "jobs.xls";
  FakeSpreadsheet::Store(path, {{"[FMT_Name=F]"}, {"Name", "Due"}, {"A1", "2026"}});
  OptionForm form;
  form.StartLine = 2;
  EXPECT_EQ(Joined(qv::ReadSampleHeaders(path, form)), "Name Due");
  EXPECT_EQ(office.Running, 0);
  EXPECT_TRUE(boxes.all.empty());
  office.Installed = false;
  EXPECT_EQ(Joined(qv::ReadSampleHeaders(path, form)), "");
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
