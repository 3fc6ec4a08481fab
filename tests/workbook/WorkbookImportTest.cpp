#include "engines/workbook/CXLSAssembly.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeSpreadsheet.h"
#include "support/Host.h"
#include "workbook/RecordRows.h"

#include <gtest/gtest.h>

namespace {

using workbook::Texts;

constexpr const char* kPath = "parts.xls";

Texts HeadersOf(const CAssemblyFile& engine) {
  Texts headers;
  for (std::size_t index = 0; index < engine.HeaderFields.Size(); ++index)
    headers.emplace_back(engine.HeaderFields[index]);
  return headers;
}

TEST(WorkbookImport, ReadsAsTheCasesSay) {
  for (const TestCase& c : ReadTestCases("workbook/cases/import")) {
    SCOPED_TRACE(c.name);
    FakeFileSystem files;
    FakeSpreadsheet fake;
    const DiagnosticLog log;
    FakeSpreadsheet::Store(kPath, c.Rows("input"));
    CXLSAssembly engine;
    engine.StartLine = std::stoi(c.Setting("start-line", "1"));
    engine.ReadHeaderOnly = c.Setting("headers-only", "") == "yes";
    const Texts columns = CellsOf(c.Setting("columns", ""));
    engine.Columns(RecordKind::Parts) = columns;
    EXPECT_TRUE(engine.ImportParts(c.Setting("file", kPath).c_str()));
    EXPECT_FALSE(engine.ReadHeaderOnly);
    EXPECT_EQ(HeadersOf(engine),
              c.settings.contains("headers") ? CellsOf(c.Setting("headers", "")) : Texts());
    std::vector<Texts> records = c.Rows("records");
    for (Texts& record : records) record.resize(columns.size());
    EXPECT_EQ(workbook::RowsOf<PartInformation>(engine, columns), records);
    EXPECT_EQ(log.Lines(), c.Lines("remarks"));
    const Texts ends = fake.CallsOf({"close", "close-workbooks", "quit"});
    EXPECT_EQ(ends, c.settings.contains("file") ? Texts() : (Texts{"close", "close-workbooks", "quit"}));
    const Texts reads = fake.CallsOf({"read"});
    EXPECT_EQ(std::set<std::string>(reads.begin(), reads.end()).size(), reads.size()) << "a cell twice";
    EXPECT_EQ(std::to_string(reads.size()), c.Setting("reads", std::to_string(reads.size())));
    EXPECT_EQ(fake.Objects + fake.Running, 0);
  }
}

TEST(WorkbookImport, TouchesNoApplicationForWhatWorkbooksDoNotCarry) {
  FakeSpreadsheet fake;
  CXLSAssembly engine;
  EXPECT_TRUE(engine.ImportMaterialInventory(kPath));
  EXPECT_TRUE(engine.ImportMaterialLibrary(kPath));
  engine.WriteFormatName("Form1", kPath);
  EXPECT_TRUE(fake.Calls.empty());
}

TEST(WorkbookImport, FindsTheFormatNameInTheFirstCell) {
  for (const auto& row : ReadTable("workbook/tables/format-names.table")) {
    SCOPED_TRACE(row[0]);
    FakeFileSystem files;
    FakeSpreadsheet fake;
    FakeSpreadsheet::Store(kPath, {{row[0], "FMT_Name=other]"}});
    std::string name = "untouched";
    CXLSAssembly().ReadFormatName(name, kPath);
    EXPECT_EQ(name, row[1]);
    EXPECT_EQ(fake.Objects + fake.Running, 0);
  }
}

TEST(WorkbookImport, GoesOnWithoutAnApplication) {
  FakeSpreadsheet fake;
  fake.Installed = false;
  host::Boxes boxes;
  DiagnosticLog log;
  CXLSAssembly engine;
  engine.StartLine = 1;
  EXPECT_TRUE(engine.ImportParts(kPath));
  std::string name = "untouched";
  engine.ReadFormatName(name, kPath);
  EXPECT_EQ(name, "untouched");
  EXPECT_EQ(boxes.all, (Texts{"Error", "Error"}));
  EXPECT_EQ(log.Codes(), "no-spreadsheet no-spreadsheet");
}

TEST(WorkbookImport, OutlivesAFailureOfEachCall) {
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    FakeFileSystem files;
    FakeSpreadsheet fake;
    host::Boxes boxes;
    DiagnosticLog log;
    FakeSpreadsheet::Store(kPath, {{"Name"}, {"A1"}, {"A2"}, {"A3"}});
    fake.FailAt(n);
    CXLSAssembly engine;
    engine.StartLine = 1;
    engine.Columns(RecordKind::Parts) = {"PartName"};
    EXPECT_TRUE(engine.ImportParts(kPath));
    EXPECT_EQ(fake.Objects + fake.Running, 0);
    EXPECT_EQ(log.Remarks.size(), fake.Failed() ? 1u : 0u);
    // What was read before the failure stays.
    const bool cellFailed = !log.Remarks.empty() && log.Remarks[0].line > 0;
    const int cells = fake.CountCalls("read") - (cellFailed ? 1 : 0);
    EXPECT_EQ(static_cast<int>(engine.StagedRecords.Of<PartInformation>().Size()), std::max(0, cells - 1));
    if (!fake.Failed()) break;
    ASSERT_LT(n, 100);
  }
}

}  // namespace
