#include "platform/xml/XmlTree.h"

#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "tests/support/CaseFile.h"
#include "tests/support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qv::XmlNode;
using qv::XmlProblem;

const bool kIsPosix = qv::kLineEnd == "\n";

class XmlTreeTest : public testing::Test {
 protected:
  bool Load(const std::string& bytes) {
    files_.Contents["a.xml"] = bytes;
    root_ = qv::LoadXml("a.xml", error_);
    EXPECT_EQ(root_.has_value(), error_.problem == XmlProblem::None);
    EXPECT_EQ(root_.has_value(), error_.reason.empty()) << error_.reason;
    return root_.has_value();
  }

  FakeFileSystem files_;
  std::optional<XmlNode> root_;
  qv::XmlError error_;
};

TEST_F(XmlTreeTest, NamesEveryKindOfChild) {
  for (const auto& row : ReadTable("platform/tables/xml-children.table")) {
    SCOPED_TRACE(row[0]);
    if (row[3] == "not elsewhere" && !kIsPosix) continue;
    ASSERT_TRUE(Load("<root>" + row[1] + "</root>")) << error_.reason;
    std::string names;
    for (const XmlNode& child : root_->children) {
      names += (names.empty() ? "" : " ") + child.name;
      EXPECT_TRUE(child.attributes.empty());
    }
    EXPECT_EQ(names, qv::FromUtf8(row[2]));
  }
}

TEST_F(XmlTreeTest, ReadsAttributeValues) {
  for (const auto& row : ReadTable("platform/tables/xml-attributes.table")) {
    SCOPED_TRACE(row[0]);
    ASSERT_TRUE(Load("<root " + row[1] + "/>")) << error_.reason;
    EXPECT_EQ(root_->Attribute("a"), qv::FromUtf8(row[2]));
  }
}

// "é" is beyond ASCII in all of them, "<" and the quotation marks tell the byte orders apart.
TEST_F(XmlTreeTest, HonoursTheEncoding) {
  for (const auto& row : ReadTable("platform/tables/xml-encodings.table")) {
    SCOPED_TRACE(row[0]);
    ASSERT_TRUE(Load(row[1] + qv::EncodeText(row[3], row[2]).value())) << error_.reason;
    EXPECT_EQ(root_->Attribute("a"), qv::FromUtf8(row[4]));
  }
}

// The sentences are the parsers' own, and so is, but for one of them, whether they name the place.
TEST_F(XmlTreeTest, RefusesWhatIsNotWellFormed) {
  for (const auto& row : ReadTable("platform/tables/xml-malformed.table")) {
    SCOPED_TRACE(row[0]);
    if (row[3] == "not elsewhere" && !kIsPosix) continue;
    EXPECT_FALSE(Load(row[1]));
    EXPECT_EQ(error_.problem, XmlProblem::Unreadable);
    if (!kIsPosix) continue;
    EXPECT_TRUE(error_.line > 0 && error_.column > 0);
    const std::string place = std::to_string(error_.line) + ":" + std::to_string(error_.column);
    EXPECT_EQ(place, row[2].empty() ? place : row[2]);
  }
}

// What a document type declares is never looked at: neither a bomb of entities nor a file elsewhere can be
// pulled in by a format file.
TEST_F(XmlTreeTest, NeverExpandsOrFetchesAnEntity) {
  files_.Contents["secret"] = "secret";
  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
  for (int i = 1; i < 30; ++i) {
    const std::string previous = "&e" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY e" + std::to_string(i) + " '" + previous + previous + "'>";
  }
  const std::string cases[] = {
      bomb + "]><a b='&e29;'/>",
      "<!DOCTYPE a [<!ENTITY e SYSTEM \"secret\">]><a><b>&e;</b></a>",
  };
  for (const std::string& text : cases) {
    EXPECT_FALSE(Load(text));
    EXPECT_EQ(error_.reason.find("xxxxxxxxxxxx"), std::string::npos);
    EXPECT_EQ(error_.reason.find("secret"), std::string::npos);
  }
}

TEST_F(XmlTreeTest, TellsAMissingFileFromABadOne) {
  EXPECT_FALSE(qv::LoadXml("none.xml", error_).has_value());
  EXPECT_EQ(error_.problem, XmlProblem::MissingFile);
  EXPECT_EQ(error_.line, 0);
  EXPECT_NE(error_.reason, "");

  files_.LargestRead = 3;
  EXPECT_TRUE(Load("<a b='\xC3\xA9'/>"));
  files_.FailAt(2, "read");
  EXPECT_FALSE(Load("<a b='\xC3\xA9'/>"));
  EXPECT_EQ(error_.problem, XmlProblem::Unreadable);
  EXPECT_EQ(error_.reason, FakeFileSystem::kReason);
}

TEST_F(XmlTreeTest, SetsALimitToTheDepth) {
  const auto nested = [](int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "<a>";
    for (int i = 0; i < depth; ++i) text += "</a>";
    return text;
  };
  EXPECT_TRUE(Load(nested(200)));
  EXPECT_FALSE(Load(nested(qv::kMaxXmlDepth + 1)));
  EXPECT_FALSE(Load(nested(100'000)));
}

TEST_F(XmlTreeTest, ReadsBackEveryValueThatItWrites) {
  for (const std::string value : {"", "plain", "\t", "a\tb", "\n", "\r\n", "  two  ", "<>&\"'", "]]>",
                                  "&amp;", "äöü", "板厚", "\xF0\x9F\x98\x80"}) {
    SCOPED_TRACE(value);
    XmlNode root{"root", {{"a", value}, {"empty", ""}}, {}};
    for (const char* name : {"PartName", "C-CutPunch", "_x", "a.b", "x1", "Größe"})
      root.children.push_back({qv::FromUtf8(name), {{"b", value}}, {}});
    EXPECT_FALSE(qv::FindXmlRefusal(root));
    std::string reason;
    ASSERT_TRUE(Load(qv::WriteXml(root, reason).value_or(reason)));
    EXPECT_EQ(*root_, root);
  }
}

TEST_F(XmlTreeTest, FindsWhatNoDocumentCanCarry) {
  // Where the code page is UTF-8, text may be none.
  for (const char* name : {kIsPosix ? "\xE9" : " ", "", " ", "a b", "#comment", "#text", "1a", "-a", ".a",
                           "a/b", "a>", "a\n", "\x01", "a:b", "xml:b", "a/><b", "!--a--"}) {
    SCOPED_TRACE(name);
    const XmlNode root{"root", {}, {{"fine", {}, {}}, {name, {{"b", "\x01"}}, {}}, {"", {}, {}}}};
    const auto refusal = qv::FindXmlRefusal(root);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->node, &root.children[1]);
    EXPECT_EQ(refusal->parent, &root);
    EXPECT_EQ(refusal->attribute, "");
  }
  for (const std::string& value :
       {std::string("\x01"), std::string("a\x1F"), std::string("\0", 1),
        std::string(kIsPosix ? "\xE9" : "\x02"), std::string(kIsPosix ? "\xEF\xBF\xBF" : "\x02")}) {
    const XmlNode root{"root", {{"fine", "x"}, {"a", value}}, {}};
    const auto refusal = qv::FindXmlRefusal(root);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->node, &root);
    EXPECT_EQ(refusal->parent, nullptr);
    EXPECT_EQ(refusal->attribute, "a");
  }
}

}  // namespace
