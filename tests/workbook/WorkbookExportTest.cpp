#include "engines/workbook/CXLSAssembly.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeSpreadsheet.h"
#include "support/Host.h"
#include "workbook/RecordRows.h"
#include "workbook/RoundTrip.h"

#include <gtest/gtest.h>

namespace {

using workbook::Texts;

constexpr const char* kPath = "out.xls";

void ConfigurePrograms(CAssemblyFile& engine, int startLine) {
  engine.StartLine = startLine;
  engine.FormatName = "Form1";
  engine.Columns(RecordKind::PartPrograms) = {"ToolShape", "PartName",  "HoleType",
                                              "ToolType",  "BendAngle", "GroupName"};
  workbook::AddProgram(engine, "P1", {"RO", "SQ"}, {"90"});
  workbook::AddProgram(engine, "P2", {"OB"}, {"45", "30"});
}

TEST(WorkbookExport, WritesOneSheet) {
  for (const TestCase& c : ReadTestCases("workbook/cases/export")) {
    SCOPED_TRACE(c.name);
    FakeFileSystem files;
    FakeSpreadsheet fake;
    const DiagnosticLog log;
    CXLSAssembly engine;
    engine.StartLine = std::stoi(c.Setting("start-line", ""));
    engine.FormatName = "Form1";
    const bool isPart = c.Setting("kind", "parts") == "parts";
    engine.Columns(isPart ? RecordKind::Parts : RecordKind::MaterialLibrary) =
        CellsOf(c.Setting("columns", ""));
    const std::vector<Texts> records = c.Rows("records");
    for (std::size_t index = 1; index < records.size(); ++index)
      workbook::Add<PartInformation>(engine, records[0], records[index]);
    EXPECT_TRUE(engine.Export(kPath));
    EXPECT_EQ(FakeSpreadsheet::Load(kPath, "Sheet1"), c.Rows("sheet"));
    std::string remarks;
    for (const Diagnostic& remark : log.Remarks)
      remarks += (remarks.empty() ? "" : " | ") + std::to_string(remark.line) + " " +
                 DiagnosticCodeName(remark.code);
    EXPECT_EQ(remarks, c.Setting("remarks", ""));
    EXPECT_EQ(fake.Objects + fake.Running, 0);
  }
}

TEST(WorkbookExport, RefusesWhatASheetDoesNotHold) {
  const struct {
    int startLine;
    int records;
    std::size_t columns;
    const char* reason;  // null: it fits
  } cases[] = {{65534, 2, 1, nullptr},
               {65534, 3, 1, "it would have 65537 rows, and a workbook of this type has no more than 65536"},
               {1, 1, 256, nullptr},
               {1, 1, 257, "it would have 257 columns, and a workbook of this type has no more than 256"}};
  for (const auto& c : cases) {
    FakeFileSystem files;
    files.Contents[kPath] = "old";
    FakeSpreadsheet fake;
    DiagnosticLog log;
    CXLSAssembly engine;
    engine.StartLine = c.startLine;
    engine.Columns(RecordKind::Parts).assign(c.columns, "PartName");
    for (int count = 0; count < c.records; ++count)
      workbook::Add<PartInformation>(engine, {"PartName"}, {"A"});
    EXPECT_EQ(engine.Export(kPath), c.reason == nullptr);
    EXPECT_EQ(files.Contents[kPath] == "old", c.reason != nullptr);
    if (c.reason != nullptr) {
      EXPECT_EQ(log.Remarks.back().message, std::string("cannot be written: ") + c.reason);
    }
    EXPECT_EQ(fake.Objects + fake.Running, 0);
  }
}

TEST(WorkbookExport, PutsTheListsOfPartProgramsOnSheetsOfTheirOwn) {
  for (const Texts& newSheets : {Texts{"Sheet1", "Sheet2", "Sheet3"}, Texts{"SHEET1"}, Texts{"Tabelle1"}}) {
    SCOPED_TRACE(newSheets.front());
    FakeFileSystem files;
    FakeSpreadsheet fake;
    fake.NewSheets = newSheets;
    CXLSAssembly engine;
    ConfigurePrograms(engine, 2);
    EXPECT_TRUE(engine.Export(kPath));
    std::map<std::string, SheetRows> sheets;
    const FakeSpreadsheet::Book book = FakeSpreadsheet::Read(kPath);
    for (const auto& sheet : book.sheets) {
      const SheetRows rows = FakeSpreadsheet::Load(kPath, sheet.name);
      if (rows.size() > 1) sheets[rows[1][0]] = rows;
    }
    const Texts name = {"[FMT_Name=Form1]"};
    EXPECT_EQ(sheets["PartName"], (SheetRows{name, {"PartName"}, {"P1"}, {"P2"}}));
    EXPECT_EQ(sheets["ToolShape"],
              (SheetRows{name, {"ToolShape", "ToolType"}, {"0", "RO"}, {"1", "SQ"}, {"0", "OB"}}));
    EXPECT_EQ(sheets["HoleType"], (SheetRows{name, {"HoleType"}}));
    EXPECT_EQ(sheets["BendAngle"], (SheetRows{name, {"BendAngle"}, {"90"}, {"45"}, {"30"}}));
    EXPECT_EQ(FakeSpreadsheet::Load(kPath, book.sheets[book.active].name)[1][0], "PartName");
    EXPECT_EQ(book.sheets.back().name, newSheets.front().substr(0, newSheets.front().size() - 1) + "4");
    EXPECT_EQ(fake.Objects + fake.Running, 0);
    if (newSheets.size() < 3) continue;
    for (const auto& [sheet, header] :
         {std::pair("Sheet2", "ToolShape"), {"Sheet3", "HoleType"}, {"Sheet4", "BendAngle"}})
      EXPECT_EQ(FakeSpreadsheet::Load(kPath, sheet)[1][0], header);
  }
}

TEST(WorkbookExport, NamesEveryCellThatIsRefusedAndKeepsTheOldFile) {
  FakeFileSystem files;
  files.Contents[kPath] = "old";
  FakeSpreadsheet fake;
  fake.Refused = "=>";
  DiagnosticLog log;
  CXLSAssembly engine;
  engine.StartLine = 1;
  engine.Columns(RecordKind::Parts) = {"PartName", "PartNumber"};
  workbook::Add<PartInformation>(engine, {"PartName", "PartNumber"}, {"A", "=>"});
  workbook::Add<PartInformation>(engine, {"PartName", "PartNumber"}, {"=>", "B"});
  EXPECT_FALSE(engine.Export(kPath));
  std::string told;
  for (const Diagnostic& diagnostic : log.Remarks)
    if (diagnostic.code == DiagnosticCode::SpreadsheetFailed)
      told += std::to_string(diagnostic.line) + " " + diagnostic.column + " " + diagnostic.text + ": " +
              diagnostic.message + "\n";
  EXPECT_EQ(told,
            "2 PartNumber =>: \"=>\" cannot be written: it looks like a formula\n"
            "3 PartName =>: \"=>\" cannot be written: it looks like a formula\n"
            "0  : cannot be written: the spreadsheet application refused 2 cells\n");
  EXPECT_EQ(fake.CountCalls("write"), 6) << "the others are written all the same";
  EXPECT_EQ(files.Contents, (std::map<std::string, std::string>{{kPath, "old"}}));
}

TEST(WorkbookExport, WritesTextsIntoCellsForTextsAndNumbersAsNumbers) {
  FakeFileSystem files;
  FakeSpreadsheet fake;
  CXLSAssembly engine;
  engine.StartLine = 2;
  const Texts keywords = {"PartName", "PartQuantity", "NoSuchColumn", "C-Cut/Punch", "MaterialThickness"};
  engine.Columns(RecordKind::Parts) = keywords;
  for (const char* thickness : {"1.5", "1234567890.123456", "-0"})
    workbook::Add<PartInformation>(engine, keywords, {"0012", "7", "", "Y", thickness});
  EXPECT_TRUE(engine.Export(kPath));
  for (const int column : {1, 3, 4})
    EXPECT_EQ(fake.CountCalls("format-as-text " + std::to_string(column)), 1);
  EXPECT_EQ(fake.CountCalls("format-as-text"), 3);
  const auto isNumber = [&](int row, int column) {
    return fake.CountCalls("write-number " + std::to_string(row) + " " + std::to_string(column)) == 1;
  };
  for (const int row : {3, 4, 5}) EXPECT_TRUE(isNumber(row, 2)) << row;
  EXPECT_TRUE(isNumber(3, 5));
  EXPECT_FALSE(isNumber(4, 5)) << "more digits than a sheet keeps";
  EXPECT_FALSE(isNumber(5, 5)) << "a sheet keeps no sign of zero";
  EXPECT_EQ(fake.CountCalls("write-number"), 4);
}

TEST(WorkbookExport, TakesTheFirstKindThatHasColumnsJobProgressBeforePartPrograms) {
  using enum RecordKind;
  const std::pair<RecordKind, const char*> order[] = {{Parts, "PartName"},        {Tools, "ID"},
                                                      {Materials, "MachineFile"}, {Sheets, "SheetName"},
                                                      {JobProgress, "JobName"},   {PartPrograms, "Comments"}};
  for (auto first = std::begin(order); first != std::end(order); ++first) {
    FakeFileSystem files;
    FakeSpreadsheet fake;
    CXLSAssembly engine;
    engine.StartLine = 1;
    engine.Columns(MaterialInventory) = {"MatName"};
    for (auto kind = first; kind != std::end(order); ++kind) engine.Columns(kind->first) = {kind->second};
    EXPECT_TRUE(engine.Export(kPath));
    EXPECT_EQ(FakeSpreadsheet::Load(kPath, "Sheet1"), (SheetRows{{first->second}}));
  }
}

TEST(WorkbookExport, FailsWithoutAnApplicationAndShowsNoBox) {
  FakeFileSystem files;
  files.Contents[kPath] = "old";
  FakeSpreadsheet fake;
  fake.Installed = false;
  host::Boxes boxes;
  DiagnosticLog log;
  CXLSAssembly engine;
  EXPECT_FALSE(engine.Export(kPath));
  EXPECT_TRUE(boxes.all.empty());
  EXPECT_EQ(log.Codes(), "no-spreadsheet");
  EXPECT_EQ(files.Contents, (std::map<std::string, std::string>{{kPath, "old"}}));
}

TEST(WorkbookExport, KeepsTheOldFileWhicheverCallFails) {
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    FakeFileSystem files;
    files.Contents[kPath] = "old";
    FakeSpreadsheet fake;
    fake.NewSheets = {"Sheet1"};
    fake.FailAt(n);
    DiagnosticLog log;
    CXLSAssembly engine;
    ConfigurePrograms(engine, 2);
    const bool done = engine.Export(kPath);
    EXPECT_EQ(fake.Objects, 0);
    EXPECT_EQ(fake.Running, 0);
    EXPECT_EQ(done, !fake.Failed());
    EXPECT_EQ(log.Remarks.empty(), done);
    EXPECT_EQ(files.Contents.size(), 1u) << "a working file was left";
    EXPECT_EQ(files.Contents[kPath] == "old", !done);
    if (!fake.Failed()) break;
    ASSERT_LT(n, 200);
  }
}

TEST(WorkbookExport, KeepsTheOldFileWhenItCannotBeReplaced) {
  for (const char* call : {"prepare", "replace"}) {
    SCOPED_TRACE(call);
    FakeFileSystem files;
    files.Contents[kPath] = "old";
    files.FailAt(1, call);
    FakeSpreadsheet fake;
    DiagnosticLog log;
    CXLSAssembly engine;
    ConfigurePrograms(engine, 1);
    EXPECT_FALSE(engine.Export(kPath));
    EXPECT_EQ(log.Codes(), "file-not-written");
    EXPECT_EQ(files.Contents[kPath], "old");
    EXPECT_EQ(files.Contents.size(), 1u);
    EXPECT_EQ(fake.Objects + fake.Running, 0);
  }
}

template <class Record>
class WorkbookRoundTrip : public testing::Test {};
TYPED_TEST_SUITE(WorkbookRoundTrip, workbook::KindsBothWays);

TYPED_TEST(WorkbookRoundTrip, GivesTheRecordsBack) {
  FakeFileSystem files;
  FakeSpreadsheet fake;
  workbook::ExpectRoundTrip<TypeParam>(kPath);
}

}  // namespace
