#include "platform/xml/XmlTree.h"

#include "platform/CodePage.h"
#include "tests/support/CaseFile.h"
#include "tests/support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qv::XmlNode;
using qv::XmlProblem;

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
  const auto wide = [](const std::string& ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii) {
      const char high = '\0';
      bytes += bigEndian ? high : c;
      bytes += bigEndian ? c : high;
    }
    return bytes;
  };
  const std::string utf16 = "<?xml version='1.0' encoding='UTF-16'?><root a='\xE9'/>";
  const struct {
    const char* why;
    std::string bytes;
    std::string value;
  } cases[] = {
      {"UTF-8 without a word", "<root a='\xC3\xA9'/>", "é"},
      {"UTF-8 with a byte-order mark", "\xEF\xBB\xBF<?xml version='1.0'?><root a='\xC3\xA9'/>", "é"},
      {"UTF-16, the high byte first", wide(utf16, true), "é"},
      {"UTF-16, the low byte first", wide(utf16, false), "é"},
      {"ISO-8859-1", "<?xml version='1.0' encoding='ISO-8859-1'?><root a='\xE9'/>", "é"},
      {"windows-1252", "<?xml version=\"1.0\" encoding=\"windows-1252\"?><root a='\x80\xE9'/>", "€é"},
      {"in small letters", "<?xml version='1.0' encoding='utf-8' standalone='yes'?><root a='\xC3\xA9'/>",
       "é"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    ASSERT_TRUE(Load(test.bytes)) << error_.reason;
    EXPECT_EQ(root_->Attribute("a"), qv::FromUtf8(test.value));
  }
}

// The sentences are the parsers' own.
TEST_F(XmlTreeTest, RefusesWhatIsNotWellFormed) {
  for (const auto& row : ReadTable("platform/tables/xml-malformed.table")) {
    SCOPED_TRACE(row[0]);
    if (row[3] == "not elsewhere") continue;
    EXPECT_FALSE(Load(row[1]));
    EXPECT_EQ(error_.problem, XmlProblem::Unreadable);
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
  for (const char* name : {"", " ", "a b", "#comment", "#text", "1a", "-a", ".a", "a/b", "a>", "a\n", "\x01",
                           "a:b", "xml:b", "a/><b", "!--a--"}) {
    SCOPED_TRACE(name);
    const XmlNode root{"root", {}, {{"fine", {}, {}}, {name, {{"b", "\x01"}}, {}}, {"", {}, {}}}};
    const auto refusal = qv::FindXmlRefusal(root);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->node, &root.children[1]);
    EXPECT_EQ(refusal->parent, &root);
    EXPECT_EQ(refusal->attribute, "");
  }
  for (const std::string& value : {std::string("\x01"), std::string("a\x1F"), std::string("\0", 1)}) {
    const XmlNode root{"root", {{"fine", "x"}, {"a", value}}, {}};
    const auto refusal = qv::FindXmlRefusal(root);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->node, &root);
    EXPECT_EQ(refusal->parent, nullptr);
    EXPECT_EQ(refusal->attribute, "a");
  }
}

}  // namespace
