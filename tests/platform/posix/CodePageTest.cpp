#include "platform/CodePage.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(CodePageTest, ReplacesEachIllFormedStretchOnce) {
  for (const auto& row : ReadTable("platform/tables/ill-formed.table")) {
    SCOPED_TRACE(row[0]);
    EXPECT_EQ(qv::ToUtf8(row[1]), row[2]);
    EXPECT_EQ(qv::DecodeText(row[1], "UTF-8"), row[2]);
  }
}

TEST(CodePageTest, ConvertsNamedEncodings) {
  for (const auto& row : ReadTable("platform/tables/encodings.table")) {
    SCOPED_TRACE(row[1] + " " + row[3]);
    EXPECT_TRUE(row[0] == "encode" || qv::DecodeText(row[2], row[1]) == row[3]);
    EXPECT_TRUE(row[0] == "decode" || qv::EncodeText(row[3], row[1]) == row[2]);
  }
}

TEST(CodePageTest, KnowsNoOtherNames) {
  for (const char* name : {"", "no-such", "windows-1252//IGNORE", "UTF-8//TRANSLIT", "/"}) {
    EXPECT_EQ(qv::DecodeText("a", name), std::nullopt) << name;
    EXPECT_EQ(qv::EncodeText("a", name), std::nullopt) << name;
  }
}

}  // namespace
