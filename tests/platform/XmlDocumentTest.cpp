#include "platform/XmlDocument.h"

#include "platform/CodePage.h"
#include "tests/support/FakeFileSystem.h"
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

  std::string Names() const {
    std::string names;
    for (const auto& child : document_->Root()->Children()) names += child->Name() + " ";
    return names;
  }

  TemporaryFolder folder_;
  XmlLoadScope scope_;
  std::unique_ptr<XmlDocument> document_ = XmlDocument::Create();
  XmlError error_;
};

TEST_F(XmlDocumentTest, NamesEveryKindOfChild) {
  const struct {
    const char* why;
    const char* content;
    const char* names;
  } cases[] = {
      {"elements in order", "<b/><a/><b/>", "b a b "},
      {"white space between elements is no child", "\n  <a/>\t\r\n <b/> ", "a b "},
      {"text is one, between whatever stands around it", " x <a/> y ", "#text a #text "},
      {"text that is a reference", "&#65;&lt;", "#text "},
      {"comments split text", "x<!--c-->y", "#text #comment #text "},
      {"an empty comment and an empty section", "<!----><![CDATA[]]>", "#comment #cdata-section "},
      {"a section beside text stays a node of its own", "x<![CDATA[<a/>]]>", "#text #cdata-section "},
      {"an instruction bears its target's name", "<?sort by=name?><?x?>", "sort x "},
      {"names of other scripts", "<Größe/><板厚/>", "Größe 板厚 "},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    ASSERT_TRUE(Load("<root>" + std::string(test.content) + "</root>")) << error_.reason;
    EXPECT_EQ(Names(), qv::FromUtf8(test.names));
  }
}

TEST_F(XmlDocumentTest, ReadsAttributeValues) {
  const struct {
    const char* why;
    const char* written;
    std::string value;
  } cases[] = {
      {"as it stands", "a='x;y'", "x;y"},
      {"in either quotation marks", "a=\"it's\"", "it's"},
      {"the five entities", "a='&lt;&gt;&amp;&quot;&apos;'", "<>&\"'"},
      {"characters by number", "a='&#9;&#x41;&#10;&#228;'", "\tA\nä"},
      {"a reference is resolved once", "a='&amp;lt;'", "&lt;"},
      {"white space becomes spaces, a line end one of them", "a='1\t2\n3\r\n4'", "1 2 3 4"},
      {"white space is not trimmed", "a='  x  '", "  x  "},
      {"an absent one is empty", "b='x'", ""},
      {"an empty one is empty", "a=''", ""},
      {"the case of names counts", "A='x'", ""},
      {"spaces around the sign", "a  =\n'x'", "x"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    ASSERT_TRUE(Load("<root " + std::string(test.written) + "/>")) << error_.reason;
    EXPECT_EQ(document_->Root()->Attribute("a"), qv::FromUtf8(test.value));
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
  const std::pair<const char*, std::string> cases[] = {
      {"nothing", ""},
      {"white space", " \n"},
      {"no markup", "Form1"},
      {"a comment alone", "<!-- x -->"},
      {"two roots", "<a/><b/>"},
      {"text before the root", "x<a/>"},
      {"text behind the root", "<a/>x"},
      {"a section outside the root", "<a/><![CDATA[]]>"},
      {"a reference outside the root", "<a/>&#32;"},
      {"an open root", "<a>"},
      {"an open child", "<a><b></a>"},
      {"crossed tags", "<a><b></a></b>"},
      {"an end tag too many", "<a/></a>"},
      {"another case in the end tag", "<a></A>"},
      {"an attribute in an end tag", "<a></a b='1'>"},
      {"the same attribute twice", "<a b='1' c='2' b='3'/>"},
      {"attributes without a space", "<a b='1'c='2'/>"},
      {"an attribute without quotation marks", "<a b=1/>"},
      {"an attribute without a value", "<a b/>"},
      {"an open attribute", "<a b='1/>"},
      {"'<' in an attribute", "<a b='<'/>"},
      {"a name that starts with a digit", "<1a/>"},
      {"a name that starts with a hyphen", "<a -b='1'/>"},
      {"a slash in a name", "<Rectangular/TrueShape/>"},
      {"a space before the name", "< a/>"},
      {"a bare ampersand", "<a>x & y</a>"},
      {"an open reference", "<a>&amp</a>"},
      {"an unknown entity", "<a>&nbsp;</a>"},
      {"an unknown entity in an attribute", "<a b='&nbsp;'/>"},
      {"a character that XML cannot carry", "<a b='\x01'/>"},
      {"a reference to one", "<a b='&#0;'/>"},
      {"a reference to a surrogate", "<a b='&#xD800;'/>"},
      {"a reference beyond the last character", "<a b='&#x110000;'/>"},
      {"a reference that no number can hold", "<a b='&#99999999999999999999;'/>"},
      {"a reference with a sign", "<a b='&#-1;'/>"},
      {"a reference without a number", "<a b='&#;'/>"},
      {"a NUL", std::string("<a>\0</a>", 8)},
      {"a byte that is not UTF-8", "<a b='\xE9'/>"},
      {"an overlong form", "<a b='\xC0\xAF'/>"},
      {"a surrogate in UTF-8", "<a b='\xED\xA0\x80'/>"},
      {"a character cut at the end", "<a/>\xE2\x82"},
      {"hyphens in a comment", "<a><!-- x -- y --></a>"},
      {"an open comment", "<a/><!-- x"},
      {"an open section", "<a><![CDATA[x]]</a>"},
      {"the end of a section in text", "<a>]]></a>"},
      {"an open instruction", "<a/><?x"},
      {"an instruction without a name", "<? x?><a/>"},
      {"a declaration that is not the first thing", " <?xml version='1.0'?><a/>"},
      {"a declaration behind the root", "<a/><?XML?>"},
      {"a declaration without a version", "<?xml encoding='UTF-8'?><a/>"},
      {"a declaration with nothing in it", "<?xml ?><a/>"},
      {"a word that standalone does not know", "<?xml version='1.0' standalone='maybe'?><a/>"},
      {"an encoding without quotes", "<?xml version='1.0' encoding=UTF-8?><a/>"},
      {"a declaration in another order", "<?xml encoding='UTF-8' version='1.0'?><a/>"},
      {"an encoding that nobody knows", "<?xml version='1.0' encoding='no-such'?><a/>"},
      {"half a UTF-16 character", "\xFF\xFE<"},
      {"an open document type", "<!DOCTYPE a [ <!ENTITY b 'c'> "},
  };
  for (const auto& [why, text] : cases) {
    SCOPED_TRACE(why);
    EXPECT_FALSE(Load(text));
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
      "",
      "plain",
      "\t",
      "a\tb",
      "\n",
      "\r\n",
      "  two  ",
      "<>&\"'",
      "]]>",
      "&amp;",
      "äöü",
      "板厚",
      "\xF0\x9F\x98\x80",
  };
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
