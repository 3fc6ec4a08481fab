#include "platform/ProfileFile.h"

#include "tests/support/CaseFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class ProfileFileTest : public testing::Test {
 protected:
  std::string Read() const {
    return qv::ReadProfileText(folder_ / "Setting.ini", "CsvXlsFormat", "DefaultFormat");
  }
  bool Write(const std::string& value) const {
    return qv::WriteProfileText(folder_ / "Setting.ini", "CsvXlsFormat", "DefaultFormat", value);
  }

  TemporaryFolder folder_;
};

TEST_F(ProfileFileTest, FindsTheValue) {
  for (const auto& row : ReadTable("platform/tables/profile-values.table")) {
    SCOPED_TRACE(row[0]);
    folder_.Write("Setting.ini", row[1]);
    EXPECT_EQ(Read(), row[2]);
  }
}

TEST_F(ProfileFileTest, WritesWhatItReadsBack) {
  for (const std::string value :
       {"Form1", "a=b", "[x]", "; x", " spaces ", "\"quoted\"", "'quoted'", "\"", "F\xF6rm"}) {
    SCOPED_TRACE(value);
    EXPECT_TRUE(Write(value));
    EXPECT_EQ(Read(), value);
  }
}

}  // namespace
