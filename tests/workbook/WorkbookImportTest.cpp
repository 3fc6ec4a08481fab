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

TEST(WorkbookImport, ReadsTheActiveSheet) {
  for (const TestCase& c : ReadTestCases("workbook/cases/import")) {
    SCOPED_TRACE(c.name);
    FakeFileSystem files;
    FakeSpreadsheet fake;
    DiagnosticLog log;
    FakeSpreadsheet::Store(kPath, c.Rows("input"));
    CXLSAssembly engine;
    engine.StartLine = std::stoi(c.Setting("start-line", ""));
    const Texts columns = CellsOf(c.Setting("columns", ""));
    engine.Columns(RecordKind::Parts) = columns;
    EXPECT_TRUE(engine.ImportParts(kPath));
    EXPECT_EQ(HeadersOf(engine), CellsOf(c.Setting("headers", "")));
    std::vector<Texts> records = c.Rows("records");
    for (Texts& record : records) record.resize(columns.size());
    EXPECT_EQ(workbook::RowsOf<PartInformation>(engine, columns), records);
    EXPECT_EQ(log.Codes(), c.Setting("remarks", ""));
    EXPECT_EQ(fake.Objects + fake.Running, 0);
  }
}

TEST(WorkbookImport, NamesTheWorksheetRow) {
  FakeFileSystem files;
  FakeSpreadsheet fake;
  DiagnosticLog log;
  FakeSpreadsheet::Store(kPath, {{}, {"b"}, {"Name", "Qty"}, {"A1", "5"}, {"A2", "x"}, {"A3", "6"}});
  CXLSAssembly engine;
  engine.StartLine = 3;
  engine.Columns(RecordKind::Parts) = {"PartName", "PartQuantity"};
  engine.ImportParts(kPath);
  ASSERT_EQ(log.Remarks.size(), 2u);
  EXPECT_EQ(log.Remarks[0].line, 5);
  EXPECT_EQ(log.Remarks[0].column, "PartQuantity");
  EXPECT_EQ(log.Remarks[1].line, 6);  // out of reach
}

TEST(WorkbookImport, StopsAfterTheHeadersWhenAskedTo) {
  FakeFileSystem files;
  FakeSpreadsheet fake;
  FakeSpreadsheet::Store(kPath, {{"Name", "Qty"}, {"A1", "5"}});
  CXLSAssembly engine;
  engine.StartLine = 1;
  engine.ReadHeaderOnly = true;
  engine.Columns(RecordKind::Parts) = {"PartName", "PartQuantity"};
  engine.ImportParts(kPath);
  EXPECT_EQ(HeadersOf(engine), (Texts{"Name", "Qty"}));
  EXPECT_FALSE(engine.ReadHeaderOnly);
  EXPECT_EQ(fake.CountCalls("read"), 2);
  EXPECT_EQ(engine.StagedRecords.Of<PartInformation>().Size(), 0u);
}

TEST(WorkbookImport, TouchesNoApplicationForWhatWorkbooksDoNotCarry) {
  FakeSpreadsheet fake;
  CXLSAssembly engine;
  EXPECT_TRUE(engine.ImportMaterialInventory(kPath));
  EXPECT_TRUE(engine.ImportMaterialLibrary(kPath));
  engine.WriteFormatName("Form1", kPath);
  EXPECT_TRUE(fake.Calls.empty());
}

struct NameCase {
  const char* cell;
  const char* name;
};

const NameCase kNameCases[] = {
    {"[FMT_Name=Form1]", "Form1"},
    {"x FMT_Name = Form 1 ] y]", " Form 1 "},
    {"[FMT_Name=]", ""},
    {"[FMT_Name=a=b]", "a=b"},
    {"[FMT_Name]", "untouched"},
    {"[FMT_Name=Form1", "untouched"},
    {"] FMT_Name=a]", "untouched"},
    {"[Name=Form1]", "untouched"},
    {"", "untouched"},
};

TEST(WorkbookImport, FindsTheFormatNameInTheFirstCell) {
  for (const NameCase& c : kNameCases) {
    SCOPED_TRACE(c.cell);
    FakeFileSystem files;
    FakeSpreadsheet fake;
    FakeSpreadsheet::Store(kPath, {{c.cell, "FMT_Name=other]"}});
    std::string name = "untouched";
    CXLSAssembly().ReadFormatName(name, kPath);
    EXPECT_EQ(name, c.name);
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

TEST(WorkbookImport, TellsAFileThatCannotBeOpened) {
  FakeFileSystem files;
  FakeSpreadsheet fake;
  DiagnosticLog log;
  CXLSAssembly engine;
  EXPECT_TRUE(engine.ImportParts("missing.xls"));
  EXPECT_EQ(log.Codes(), "file-not-opened");
  EXPECT_EQ(log.Remarks[0].message, "cannot be read: No such file or directory");
  EXPECT_EQ(fake.Objects + fake.Running, 0);
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
    EXPECT_EQ(fake.Objects, 0);
    EXPECT_EQ(fake.Running, 0);
    EXPECT_EQ(log.Remarks.size(), fake.Failed() ? 1u : 0u);
    // What was read before the failure stays.
    const bool cellFailed = !log.Remarks.empty() && log.Remarks[0].line > 0;
    const int cells = fake.CountCalls("read") - (cellFailed ? 1 : 0);
    EXPECT_EQ(static_cast<int>(engine.StagedRecords.Of<PartInformation>().Size()), std::max(0, cells - 1));
    if (!fake.Failed()) break;
    ASSERT_LT(n, 100);
  }
}

TEST(WorkbookImport, AsksForEachCellOnce) {
  for (const int rows : {1, 10, 40}) {
    for (const int columns : {1, 7}) {
      FakeFileSystem files;
      FakeSpreadsheet fake;
      FakeSpreadsheet::Store(
          kPath, SheetRows(static_cast<std::size_t>(rows), Texts(static_cast<std::size_t>(columns), "x")));
      CXLSAssembly engine;
      engine.StartLine = 1;
      engine.Columns(RecordKind::Parts) = {"PartName", "Machine"};
      engine.ImportParts(kPath);
      constexpr int kOpenAndClose = 8;  // start, open, sheet, both sizes, close, close all, quit
      EXPECT_EQ(static_cast<int>(fake.Calls.size()), rows * columns + kOpenAndClose);
    }
  }
}

}  // namespace
