#include "engines/workbook/CXLSAssembly.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeSpreadsheet.h"
#include "support/FilledRecord.h"
#include "support/Host.h"
#include "workbook/RecordRows.h"
#include "workbook/RoundTrip.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

namespace {

using workbook::Texts;

constexpr const char* kPath = "out.xls";

Texts WordsOf(const std::string& line) {
  std::istringstream words(line);
  return {std::istream_iterator<std::string>(words), {}};
}

void Stage(CAssemblyFile& engine, const TestCase& c) {
  engine.StartLine = std::stoi(c.Setting("start-line", "1"));
  engine.FormatName = "Form1";
  engine.Columns(qv::KindNamed(c.Setting("kind", "parts"))) = CellsOf(c.Setting("columns", ""));
  const std::vector<Texts> records = c.Rows("records");
  for (std::size_t index = 1; index < records.size(); ++index)
    workbook::Add<PartInformation>(engine, records[0], records[index]);
  for (const Texts& program : c.Rows("programs"))
    workbook::AddProgram(engine, program[0].c_str(), WordsOf(program[1]), WordsOf(program[2]));
}

TEST(WorkbookExport, WritesAsTheCasesSay) {
  for (const TestCase& c : ReadTestCases("workbook/cases/export")) {
    SCOPED_TRACE(c.name);
    FakeFileSystem files;
    files.Contents[kPath] = "old";
    if (const std::string call = c.Setting("failing", ""); !call.empty()) files.FailAt(1, call);
    FakeSpreadsheet fake;
    fake.Installed = c.Setting("application", "") != "missing";
    fake.Refused = c.Setting("refused", fake.Refused);
    fake.NewSheets = WordsOf(c.Setting("new-sheets", "Sheet1 Sheet2 Sheet3"));
    const host::Boxes boxes;
    const DiagnosticLog log;
    CXLSAssembly engine;
    Stage(engine, c);
    const bool fails = c.Setting("result", "") == "fails";
    EXPECT_EQ(engine.Export(kPath), !fails);
    EXPECT_EQ(files.Contents[kPath] == "old", fails);
    EXPECT_EQ(files.Contents.size(), 1u) << "a working file was left";
    for (const auto& [name, lines] : c.sections) {
      if (!name.starts_with("sheet ")) continue;
      EXPECT_EQ(FakeSpreadsheet::Load(kPath, name.substr(6)), c.Rows(name)) << name;
    }
    EXPECT_EQ(fails ? 0 : FakeSpreadsheet::Read(kPath).active, 0u);
    EXPECT_EQ(log.Lines(), c.Lines("remarks"));
    EXPECT_EQ(log.Messages(), c.Has("messages") ? c.Lines("messages") : log.Messages());
    const Texts forms = fake.CallsOf({"format-as-text", "write-number"});
    EXPECT_EQ(forms, c.Has("forms") ? c.Lines("forms") : forms);
    EXPECT_TRUE(fails || fake.CallsOf({"close", "close-workbooks", "quit"}).size() == 3);
    EXPECT_TRUE(boxes.all.empty());
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
    engine.StartLine = 2;
    engine.Columns(RecordKind::PartPrograms) = {"PartName", "ToolType", "HoleType", "BendAngle"};
    workbook::AddProgram(engine, "P1", {"RO", "SQ"}, {"90"});
    const bool done = engine.Export(kPath);
    EXPECT_EQ(fake.Objects + fake.Running, 0);
    EXPECT_EQ(done, !fake.Failed());
    EXPECT_EQ(log.Remarks.empty(), done);
    EXPECT_EQ(files.Contents.size(), 1u) << "a working file was left";
    EXPECT_EQ(files.Contents[kPath] == "old", !done);
    if (!fake.Failed()) break;
    ASSERT_LT(n, 200);
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
