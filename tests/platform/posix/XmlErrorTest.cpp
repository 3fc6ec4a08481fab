#include "platform/XmlDocument.h"
#include "tests/support/CaseFile.h"
#include "tests/support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qv::XmlDocument;
using qv::XmlError;

TEST(XmlErrorTest, NamesTheLineTheColumnAndTheCause) {
  FakeFileSystem files;
  int told = 0;
  for (const auto& row : ReadTable("platform/tables/xml-malformed.table")) {
    if (row[2].empty()) continue;
    SCOPED_TRACE(row[0]);
    files.Contents["a.xml"] = row[1];
    XmlError error;
    EXPECT_FALSE(XmlDocument::Create()->Load("a.xml", error));
    EXPECT_EQ(std::to_string(error.line) + ":" + std::to_string(error.column), row[2]);
    EXPECT_EQ(error.reason, row[3]);
    ++told;
  }
  EXPECT_GT(told, 15);
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
