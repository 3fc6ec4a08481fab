#include "platform/XmlDocument.h"

#include "platform/CodePage.h"
#include "tests/support/CaseFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using qv::XmlDocument;
using qv::XmlError;
using qv::XmlLoadScope;
using qv::XmlNode;

class XmlDocumentTest : public testing::Test {
 protected:
  bool Load(const std::string& bytes) {
    const std::string path = folder_.Write("document.xml", bytes);
    return document_->Load(path.c_str(), error_);
  }

  TemporaryFolder folder_;
  XmlLoadScope scope_;
  std::unique_ptr<XmlDocument> document_ = XmlDocument::Create();
  XmlError error_;
};

TEST_F(XmlDocumentTest, NamesEveryKindOfChild) {
  for (const auto& row : ReadTable("platform/tables/xml-children.table")) {
    SCOPED_TRACE(row[0]);
    ASSERT_TRUE(Load("<root>" + row[1] + "</root>")) << error_.reason;
    std::string names;
    for (const auto& child : document_->Root()->Children())
      names += (names.empty() ? "" : " ") + child->Name();
    EXPECT_EQ(names, qv::FromUtf8(row[2]));
  }
}

TEST_F(XmlDocumentTest, ReadsAttributeValues) {
  for (const auto& row : ReadTable("platform/tables/xml-attributes.table")) {
    SCOPED_TRACE(row[0]);
    ASSERT_TRUE(Load("<root " + row[1] + "/>")) << error_.reason;
    EXPECT_EQ(document_->Root()->Attribute("a"), qv::FromUtf8(row[2]));
  }
}

TEST_F(XmlDocumentTest, NodesOtherThanElementsHaveNoAttributes) {
  ASSERT_TRUE(Load("<root>text<!-- Order='1' --><![CDATA[Order='1']]><?pi Order='1'?></root>"));
  for (const auto& child : document_->Root()->Children()) EXPECT_EQ(child->Attribute("Order"), "");
}

// "é" is beyond ASCII in all of them, "<" and the quotation marks tell the byte orders apart.
TEST_F(XmlDocumentTest, HonoursTheEncoding) {
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
    EXPECT_EQ(document_->Root()->Attribute("a"), qv::FromUtf8(test.value));
  }
}

TEST_F(XmlDocumentTest, RefusesWhatIsNotWellFormed) {
  for (const auto& row : ReadTable("platform/tables/xml-malformed.table")) {
    SCOPED_TRACE(row[0]);
    if (row[4] == "not elsewhere") continue;
    EXPECT_FALSE(Load(row[1]));
    EXPECT_FALSE(error_.missing);
    EXPECT_NE(error_.reason, "");
    EXPECT_EQ(document_->Root(), nullptr);
  }
}

// What a document type declares is never looked at: neither a bomb of entities nor a file elsewhere can be
// pulled in by a format file.
TEST_F(XmlDocumentTest, NeverExpandsOrFetchesAnEntity) {
  const std::string secret = folder_.Write("secret", "secret");
  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
  for (int i = 1; i < 30; ++i) {
    const std::string previous = "&e" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY e" + std::to_string(i) + " '" + previous + previous + "'>";
  }
  const std::string cases[] = {
      bomb + "]><a b='&e29;'/>",
      "<!DOCTYPE a [<!ENTITY e SYSTEM \"file://" + secret + "\">]><a><b>&e;</b></a>",
  };
  for (const std::string& text : cases) {
    EXPECT_FALSE(Load(text) && document_->Root()->Attribute("b") != "");
    EXPECT_EQ(error_.reason.find("xxxxxxxxxxxx"), std::string::npos);
    EXPECT_EQ(error_.reason.find("secret"), std::string::npos);
  }
}

TEST_F(XmlDocumentTest, TellsAMissingFileFromABadOne) {
  EXPECT_FALSE(document_->Load((folder_ / "none.xml").c_str(), error_));
  EXPECT_TRUE(error_.missing);
  EXPECT_EQ(error_.line, 0);
  EXPECT_NE(error_.reason, "");

  EXPECT_FALSE(document_->Load((folder_ / "").c_str(), error_));
  EXPECT_FALSE(error_.missing);
}

TEST_F(XmlDocumentTest, SurvivesAnyDepthOfNesting) {
  constexpr int kDepth = 100'000;
  std::string text;
  for (int i = 0; i < kDepth; ++i) text += "<a>";
  for (int i = 0; i < kDepth; ++i) text += "</a>";
  // A platform may set a limit, but must not crash.
  if (Load(text)) {
    EXPECT_EQ(document_->Root()->Children().size(), 1U);
  }
  EXPECT_FALSE(Load(text.substr(0, text.size() - 4)));
}

TEST_F(XmlDocumentTest, ReadsBackEveryValueThatItWrites) {
  const std::string values[] = {
      "",     "plain",           "\t", "a\tb", "\n", "\r\n", "  two  ", "<>&\"'", "]]>", "&amp;", "äöü",
      "板厚", "\xF0\x9F\x98\x80"};
  for (const std::string& value : values) {
    SCOPED_TRACE(value);
    const auto written = XmlDocument::Create();
    EXPECT_TRUE(written->AppendProcessingInstruction("xml", "version=\"1.0\" encoding=\"UTF-8\""));
    const auto root = written->CreateRoot("root");
    ASSERT_NE(root, nullptr);
    EXPECT_TRUE(root->SetAttribute("a", "replaced"));
    EXPECT_TRUE(root->SetAttribute("a", value));
    EXPECT_TRUE(root->AppendElement("child")->SetAttribute("b", value));
    const std::string path = folder_ / "written.xml";
    std::string reason;
    ASSERT_TRUE(written->Save(path.c_str(), reason)) << reason;

    ASSERT_TRUE(document_->Load(path.c_str(), error_)) << error_.line << ": " << error_.reason;
    EXPECT_EQ(document_->Root()->Attribute("a"), value);
    EXPECT_EQ(document_->Root()->Children().at(0)->Attribute("b"), value);
  }
}

TEST_F(XmlDocumentTest, MakesOnlyElementsThatCanBeReadAgain) {
  const auto root = document_->CreateRoot("root");
  ASSERT_NE(root, nullptr);
  for (const char* name : {"PartName", "C-CutPunch", "_x", "a.b", "x1", "Größe"}) {
    EXPECT_NE(root->AppendElement(qv::FromUtf8(name)), nullptr) << name;
  }
  for (const char* name : {"", " ", "a b", "#comment", "#text", "1a", "-a", ".a", "Rectangular/TrueShape",
                           "a>", "a\n", "\x01", "C-Cut/Punch", "no:prefix"}) {
    EXPECT_EQ(root->AppendElement(name), nullptr) << name;
  }
  EXPECT_EQ(XmlDocument::Create()->CreateRoot("a b"), nullptr);
  EXPECT_EQ(XmlDocument::Create()->Root(), nullptr);
}

}  // namespace
