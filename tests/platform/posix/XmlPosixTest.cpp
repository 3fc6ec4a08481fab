#include "platform/xml/XmlTree.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(XmlPosixTest, NamesTheLineAndTheColumn) {
  int told = 0;
  for (const auto& row : ReadTable("platform/tables/xml-malformed.table")) {
    SCOPED_TRACE(row[0]);
    qv::XmlError error;
    EXPECT_FALSE(qv::ParseXml(row[1], error));
    EXPECT_GT(error.line, 0);
    EXPECT_GT(error.column, 0);
    if (row[2].empty()) continue;
    EXPECT_EQ(std::to_string(error.line) + ":" + std::to_string(error.column), row[2]) << error.reason;
    ++told;
  }
  EXPECT_GT(told, 10);
}

TEST(XmlPosixTest, WhiteSpaceByItsNumberIsText) {
  qv::XmlError error;
  const auto root = qv::ParseXml("<a> &#32; <b/> </a>", error);
  ASSERT_TRUE(root);
  ASSERT_EQ(root->children.size(), 2U);
  EXPECT_EQ(root->children[0].name, "#text");
}

TEST(XmlPosixTest, RefusesTextThatIsNotUtf8) {
  EXPECT_TRUE(qv::FindXmlRefusal({"a", {{"b", "\xE9"}}, {}}));
  EXPECT_TRUE(qv::FindXmlRefusal({"\xE9", {}, {}}));
  EXPECT_TRUE(qv::FindXmlRefusal({"a", {{"b", "\xEF\xBF\xBF"}}, {}}));
}

}  // namespace
