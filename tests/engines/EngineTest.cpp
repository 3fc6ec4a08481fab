#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "engines/columns/ColumnTables.h"
#include "engines/text/CTxtAssembly.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"
#include "support/FormatText.h"
#include "support/Host.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ApplyFormat, OrdersColumnsByPosition) {
  for (const auto& row : ReadTable("engines/tables/columns.table")) {
    SCOPED_TRACE(row[0]);
    CTxtAssembly engine;
    engine.KindFlags[0] = true;
    OptionForm form;
    form.Items = ItemsOf(row[1]);
    ApplyFormat(engine, form, "parts.txt");
    EXPECT_EQ(Joined(engine.Columns(RecordKind::Parts)), row[2]);
  }
}

TEST(ApplyFormat, FillsTheFirstFlaggedKindOnly) {
  CTxtAssembly engine;
  engine.KindFlags[2] = engine.KindFlags[5] = true;
  OptionForm form;
  form.Items = {{"A", "0"}};
  ApplyFormat(engine, form, "");
  ApplyFormat(engine, form, "");
  EXPECT_EQ(Joined(engine.Columns(RecordKind::Materials)), "A A");
  EXPECT_TRUE(engine.Columns(RecordKind::MaterialInventory).empty());
}

TEST(Engine, QualifiesAndDelimits) {
  for (const auto& row : ReadTable("engines/tables/quoting.table")) {
    CTxtAssembly text;
    CCSVAssembly csv;
    for (CTxtAssembly* engine : {&text, static_cast<CTxtAssembly*>(&csv)}) {
      engine->Qualifier = std::stoi(row[0]);
      engine->Delimiters = row[1];
      engine->OtherDelimiters = row[2];
      std::string cell = "a";
      engine->QualifyField(cell);
      engine->AppendDelimiter(cell);
      EXPECT_EQ(cell, engine == &text ? row[3] : "\"a\",") << row[1];
    }
  }
}

TEST(Reading, KeepsWhatCameBeforeAFailureAndTellsIt) {
  for (int call = 1; call <= 2; ++call) {
    FakeFileSystem files;
    files.Contents["parts.csv"] = "name,qty\nA1,5\n";
    files.LargestRead = 12;  // the header row and a part's name
    files.FailAt(call, "read");
    DiagnosticLog log;
    CTxtAssembly engine;
    engine.Delimiters = "Comma";
    engine.Columns(RecordKind::Parts) = {"PartName"};
    EXPECT_TRUE(engine.ImportParts("parts.csv"));
    EXPECT_EQ(engine.StagedRecords.Of<PartInformation>().Size(), call == 1 ? 0u : 1u);
    EXPECT_EQ(log.Codes(), "file-not-opened");
    files.FailAt(call, "read");
    const qv::FileDiagnostics diagnostics("parts.csv");
    const auto source = qv::OpenRecords(engine, RecordKind::Parts, diagnostics);
    while (source->Next() != nullptr) continue;
    EXPECT_TRUE(source->HasFailed());
  }
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

TEST(EngineFactory, GoesByTheExtension) {
  host::Boxes boxes;
  for (const char* path : {"report.TXT", "report.Csv", "a.b\\c.xLs", "/x.y/report.txt", ".csv"})
    EXPECT_NE(CreateAssemblyEngine(path), nullptr) << path;
  EXPECT_TRUE(boxes.all.empty());
  for (const char* path : {"report.xlsx", "report", "", "txt", "folder.txt/report", "report.txt ",
                           static_cast<const char*>(nullptr)}) {
    boxes.all.clear();
    EXPECT_EQ(CreateAssemblyEngine(path), nullptr);
    EXPECT_EQ(boxes.all, std::vector<std::string>{"File Format Error!"});
  }
}

}  // namespace
