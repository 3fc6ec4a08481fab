#include "engines/columns/ColumnTables.h"
#include "engines/text/CTxtAssembly.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr const char* kPath = "parts.csv";

TEST(Reading, KeepsWhatCameBeforeAFailureAndTellsIt) {
  for (int call = 1; call <= 2; ++call) {
    FakeFileSystem files;
    files.Contents[kPath] = "name,qty\nA1,5\n";
    files.LargestRead = 12;  // the header row and a part's name
    files.FailAt(call, "read");
    DiagnosticLog log;
    CTxtAssembly engine;
    engine.Delimiters = "Comma";
    engine.Columns(RecordKind::Parts) = {"PartName"};
    EXPECT_TRUE(engine.ImportParts(kPath));
    EXPECT_EQ(engine.StagedRecords.Of<PartInformation>().Size(), call == 1 ? 0u : 1u);
    EXPECT_EQ(log.Codes(), "file-not-opened");
  }
}

// As the platform's text files have it everywhere, so that no reader meets two kinds of line ends.
TEST(Columns, ALineFeedInACellIsALineEnd) {
  FakeFileSystem files;
  DiagnosticLog log;
  CCSVAssembly engine;
  engine.Columns(RecordKind::Parts) = {"PartName"};
  for (const char* name : {"a\nb\n", "=c"}) {
    auto part = std::make_unique<PartInformation>();
    part->SetPartName(name);
    engine.StagedRecords.Of<PartInformation>().Begin() = *part;
    engine.StagedRecords.Of<PartInformation>().Keep();
  }
  EXPECT_TRUE(engine.Export(kPath));
  const std::string end(qv::kLineEnd);
  EXPECT_EQ(files.Contents[kPath],
            "\"PartName\"," + end + "\"a" + end + "b" + end + "\"" + end + "\"=c\"" + end);
  EXPECT_EQ(log.Remarks.back().line, 5);
}

// Keywords that no format file can hold, for an XML tag ends at a blank and has no slash.
TEST(Columns, KeywordsBeyondTheFormatFile) {
  FakeFileSystem files;
  files.Contents["m.csv"] = "h\n1,2\n";
  CCSVAssembly engine;
  engine.Columns(RecordKind::Materials) = {"Ignore", "OUTSIDECUTOUTS-EXCEEDSY "};
  engine.ImportMaterials("m.csv");
  EXPECT_EQ(engine.StagedRecords.Of<MaterialInfomation>()[0]->GetOutsideCutouts_ExceedsY(), 2.0f);

  CCSVAssembly writer;
  writer.Columns(RecordKind::Parts) = {"c-cut/punch", "RectangularTrueShape", "RECTANGULAR/TRUESHAPE"};
  writer.Export("p.csv");
  EXPECT_EQ(files.Contents["p.csv"], "\"c-cut/punch\",\"RectangularTrueShape\",\"RECTANGULAR/TRUESHAPE\"," +
                                         std::string(qv::kLineEnd));
}

}  // namespace
