#include "platform/XmlDocument.h"
#include "tests/support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qv::XmlDocument;
using qv::XmlError;

TEST(XmlErrorTest, NamesTheLineTheColumnAndTheCause) {
  const struct {
    const char* why;
    std::string text;
    long line;
    long column;
    const char* reason;
  } cases[] = {
      {"an empty file", "", 1, 1, "there is no root element"},
      {"the first character", "x<a/>", 1, 1, "text outside the root element"},
      {"behind line ends of three kinds", "<a>\n\r\n\r  <b></c></a>", 4, 6,
       "the end tag 'c' does not close 'b'"},
      {"columns count characters, not bytes", "<a b='äö板'c=''/>", 1, 11,
       "no white space before the attribute 'c'"},
      {"a second attribute", "<a b='1'\n b='2'/>", 2, 2, "the attribute 'b' stands twice"},
      {"a reference inside a value", "<a b='x&y;'/>", 1, 8,
       "the entity 'y' is not known; document type declarations are not read"},
      {"an open element is told at the end", "<a>\n<b>\n", 3, 1, "the element 'b' is not closed"},
      {"an open attribute where it starts", "<a\nb='1>", 2, 3, "an attribute's value is not closed"},
      {"a bad byte", "<a>\n\xC3\xA9\xFF</a>", 2, 2, "a byte that is not UTF-8"},
      {"a bad byte of a declared encoding", "<?xml version='1.0' encoding='windows-1252'?>\n<a>\x81</a>", 2,
       4, "a byte that is not windows-1252"},
      {"an unknown encoding", "<?xml version='1.0' encoding='no-such'?><a/>", 1, 1,
       "the encoding 'no-such' is not known"},
      {"a name that is none", "<?xml version='1.0' encoding='UTF-8//IGNORE'?><a/>", 1, 45,
       "a malformed XML declaration"},
      {"a declaration of another standard", "<?xml version='2.0'?><a/>", 1, 20,
       "a malformed XML declaration"},
      {"a control character", "<a>\n\t\x02</a>", 2, 2, "a character that XML does not allow"},
      {"a second root", "<a/>\n<b/>", 2, 1, "a second root element"},
      {"a document type that is not closed", "\n<!DOCTYPE a [", 2, 1,
       "the document type declaration is not closed"},
      {"a document type behind the root", "<a/><!DOCTYPE a>", 1, 5,
       "a document type declaration where none may stand"},
  };
  FakeFileSystem files;
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    files.Contents["a.xml"] = test.text;
    XmlError error;
    EXPECT_FALSE(XmlDocument::Create()->Load("a.xml", error));
    EXPECT_EQ(error.line, test.line);
    EXPECT_EQ(error.column, test.column);
    EXPECT_EQ(error.reason, test.reason);
  }
}

TEST(XmlErrorTest, SkipsADocumentTypeUnread) {
  const char* const types[] = {
      "<!DOCTYPE a>",
      "<!DOCTYPE a SYSTEM \"http://nowhere.invalid/a.dtd\">",
      "<!DOCTYPE a PUBLIC '-//x' 'b>c'>",
      "<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a b CDATA 'default'>]>",
      "<!DOCTYPE a [<!ENTITY e '>]>'><!-- ]> ' --><?pi ]> \" ?>] >",
  };
  FakeFileSystem files;
  for (const char* type : types) {
    SCOPED_TRACE(type);
    files.Contents["a.xml"] = std::string("<?xml version='1.0'?>\n") + type + "<!-- c --><a>x</a>";
    XmlError error;
    const auto document = XmlDocument::Create();
    ASSERT_TRUE(document->Load("a.xml", error)) << error.reason;
    EXPECT_EQ(document->Root()->Attribute("b"), "");
    EXPECT_EQ(document->Root()->Children().size(), 1U);
  }
}

TEST(XmlErrorTest, ReadsInPiecesAndTellsAFailureOnTheWay) {
  FakeFileSystem files;
  files.LargestRead = 3;
  files.Contents["a.xml"] = "<a b='\xC3\xA9'/>";
  XmlError error;
  const auto document = XmlDocument::Create();
  EXPECT_TRUE(document->Load("a.xml", error));
  files.FailAt(2, "read");
  EXPECT_FALSE(document->Load("a.xml", error));
  EXPECT_EQ(error.reason, FakeFileSystem::kReason);
  EXPECT_FALSE(error.missing);
  EXPECT_EQ(document->Root(), nullptr);
}

TEST(XmlErrorTest, RefusesValuesThatNoDocumentCanCarry) {
  const auto document = XmlDocument::Create();
  const auto root = document->CreateRoot("root");
  for (const std::string& value : {std::string("\x01"), std::string("a\x1F"), std::string("\0", 1),
                                   std::string("\xE9"), std::string("\xEF\xBF\xBF")}) {
    EXPECT_FALSE(root->SetAttribute("a", value));
  }
  EXPECT_EQ(root->Attribute("a"), "");
  EXPECT_FALSE(root->SetAttribute("a b", "x"));
  EXPECT_FALSE(document->AppendProcessingInstruction("x", "a ?> b"));
}

TEST(XmlErrorTest, SaysWhyAFileWasNotWritten) {
  for (const char* call : {"open-write", "write", "close"}) {
    FakeFileSystem files;
    const auto document = XmlDocument::Create();
    document->CreateRoot("a");
    files.FailAt(1, call);
    std::string reason;
    EXPECT_FALSE(document->Save("a.xml", reason)) << call;
    EXPECT_EQ(reason, FakeFileSystem::kReason);
  }
}

}  // namespace
