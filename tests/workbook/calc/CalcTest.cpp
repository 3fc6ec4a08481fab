#include "platform/spreadsheet/WorkbookFacts.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/TemporaryFolder.h"
#include "workbook/RoundTrip.h"
#include "workbook/calc/SharedOffice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <random>

namespace {

using workbook::Texts;

using Calc = SharedOffice;

/// The workbook of odd cells as a file of the make that is read in shops, which keeps less than its source.
std::string SaveOddCells(qv::SpreadsheetApplication& office, const TemporaryFolder& folder) {
  const auto book = office.OpenWorkbook(TestFile("workbook/calc/odd-cells.fods"));
  book->SaveAs(folder / "odd-cells.xls");
  return TemporaryFolder::Read(folder / "odd-cells.xls");
}

/// Replaces the first of what must be there.
std::string Patched(std::string bytes, std::string_view from, std::string_view to) {
  const std::size_t at = bytes.find(from);
  return at == std::string::npos ? "" : bytes.replace(at, from.size(), to);
}

TEST_F(Calc, TurnsCellsOfEveryMakeIntoText) {
  const TemporaryFolder folder;
  // The office saves the error of SQRT(-1) as another than the one that others save.
  const std::string_view saved("\2\0\x0F\0\0\0\xFF\xFF", 8), others("\2\0\x24\0\0\0\xFF\xFF", 8);
  folder.Write("odd-cells.xls", Patched(SaveOddCells(Office(), folder), saved, others));
  for (const std::string& path : {TestFile("workbook/calc/odd-cells.fods"), folder / "odd-cells.xls"}) {
    SCOPED_TRACE(path);
    const auto book = Office().OpenWorkbook(path);
    const auto sheet = book->ActiveSheet();
    // Downwards they are read in blocks, upwards each in one of its own.
    auto rows = ReadTable("workbook/calc/odd-cells.table");
    for (const bool isDownwards : {true, false}) {
      for (const auto& row : rows)
        EXPECT_EQ(sheet->ReadCell(std::stoi(row[0]), 1), row[path.ends_with("xls") ? 2 : 1])
            << row[0] << isDownwards;
      std::reverse(rows.begin(), rows.end());
    }
    // The used range starts in row 3.
    EXPECT_EQ(sheet->UsedRows(), 24);
    EXPECT_EQ(sheet->UsedColumns(), 1);
  }
}

TEST_F(Calc, CountsDaysFromWhereTheWorkbookDoes) {
  const TemporaryFolder folder;
  const std::string source = folder.Write(
      "1904.fods", Patched(TemporaryFolder::Read(TestFile("workbook/calc/odd-cells.fods")), "<table:table ",
                           "<table:calculation-settings><table:null-date table:date-value=\"1904-01-01\"/>"
                           "</table:calculation-settings><table:table "));
  Office().OpenWorkbook(source)->SaveAs(folder / "1904.xls");
  for (const std::string& path : {source, folder / "1904.xls"}) {
    const auto book = Office().OpenWorkbook(path);
    const auto sheet = book->ActiveSheet();
    EXPECT_EQ(sheet->ReadCell(12, 1), "1/31/2024") << path;
    EXPECT_EQ(sheet->ReadCell(13, 1), "1/31/2024 6:00:01 PM") << path;
    EXPECT_EQ(sheet->ReadCell(14, 1), "12:00:00 PM") << path;
  }
}

TEST_F(Calc, KeepsTextAsTextAndWhatItCannotDecodeAsAMark) {
  const TemporaryFolder folder;
  const auto cells = ReadTable("workbook/calc/kept-texts.table");
  {
    const auto book = Office().AddWorkbook();
    const auto sheet = book->FindSheet("SHEET1");
    for (int row = 1; const auto& cell : cells) sheet->WriteCell(row++, 2, cell[0]);
    sheet->Flush();
    book->SaveAs(folder / "texts.xls");
    book->Close();
  }
  const auto book = Office().OpenWorkbook(folder / "texts.xls");
  const auto sheet = book->ActiveSheet();
  for (int row = 1; const auto& cell : cells) EXPECT_EQ(sheet->ReadCell(row++, 2), cell[1]);
  EXPECT_EQ(folder.Names(), (std::set<std::string>{"texts.xls"}));
}

TEST_F(Calc, ReadsTheSheetThatTheFileNamesAsActive) {
  const TemporaryFolder folder;
  {
    const auto book = Office().AddWorkbook();
    const auto first = book->FindSheet("sheet1"), second = book->AddSheet();
    first->WriteCell(1, 1, "first");
    second->WriteCell(1, 1, "second");
    first->Flush();
    second->Flush();
    book->SaveAs(folder / "first.xls");
    book->Close();
  }
  std::string bytes = TemporaryFolder::Read(folder / "first.xls");
  const std::string_view window("\x3D\x00\x12\x00", 4);  // the head of the record that names the sheet
  const std::size_t at = bytes.find(window);
  ASSERT_NE(at, std::string::npos);
  bytes[at + window.size() + 10] = 1;
  folder.Write("second.xls", bytes);
  for (const char* name : {"first", "second"}) {
    const auto book = Office().OpenWorkbook(folder / (std::string(name) + ".xls"));
    EXPECT_EQ(book->ActiveSheet()->ReadCell(1, 1), name);
  }
}

/// Why the office, or what stands before it, does not open the file; empty when it does.
std::string Refusal(const std::string& path) {
  CXLSAssembly engine;
  engine.StartLine = 0;
  engine.Columns(RecordKind::Parts) = {"PartName"};
  const DiagnosticLog log;
  EXPECT_TRUE(engine.ImportParts(path.c_str()));
  if (log.Remarks.empty() || log.Remarks[0].code != DiagnosticCode::FileNotOpened) return {};
  EXPECT_EQ(engine.StagedRecords.Of<PartInformation>().Size(), 0u);
  return log.Remarks[0].message;
}

TEST_F(Calc, RefusesWhatIsNoWorkbook) {
  const TemporaryFolder folder;
  const std::string damaged = "cannot be read: it is damaged, or no workbook";
  const std::pair<std::string, std::string> cases[] = {
      {folder / "missing.xls", "cannot be read: No such file or directory"},
      {folder / ".", "cannot be read: Is a directory"},
      {folder.Write("empty.xls", ""), damaged},
      {folder.Write("noise.xls", std::string_view("\x7F\x45LF\0\1\2", 7)), damaged},
      {folder.Write("list.xls", "a\tb\n"),
       "cannot be read: it is text and no workbook; named .txt or .csv it can be read"},
      {folder.Write("zip.xls", "PK\3\4 and no more"),
       "cannot be read: LibreOffice cannot open it: it is damaged, or no workbook"},
      {TestFile("workbook/calc/password.xls"),
       "cannot be read: LibreOffice cannot open it: a password is needed"}};
  for (const auto& [path, reason] : cases) EXPECT_EQ(Refusal(path), reason) << path;
  std::string bytes = SaveOddCells(Office(), folder);
  const std::size_t name =
      bytes.find(std::string_view("\3\0Odd", 5));  // after how the sheet is shown, and its type
  ASSERT_NE(name, std::string::npos);
  bytes[name - 2] = 2;
  EXPECT_EQ(Refusal(folder.Write("hidden.xls", bytes)), "");
  bytes[name - 1] = 2;
  EXPECT_EQ(Refusal(folder.Write("chart.xls", bytes)),
            "cannot be read: its active sheet is a chart; activate the sheet with the list, and save it");
  EXPECT_EQ(Refusal(folder.Write("page.xls", "<html><table><tr><td>A1</td></tr></table></html>")), "");
}

/// The texts of the first column's cells.
std::string CellsOf(qv::Workbook& book) {
  const auto sheet = book.ActiveSheet();
  std::string cells;
  for (std::int32_t row = 1; row <= 27; ++row) cells += sheet->ReadCell(row, 1) + "\n";
  return cells;
}

// What is damaged where nobody can see it is read; but never anything that the workbook did not hold.
TEST_F(Calc, RefusesDamagedWorkbooks) {
  const TemporaryFolder folder;
  const std::string whole = SaveOddCells(Office(), folder);
  const std::string cells = CellsOf(*Office().OpenWorkbook(folder / "odd-cells.xls"));
  constexpr std::size_t kPlaces = 20;
  for (std::size_t place = 0; place < kPlaces; ++place) {
    SCOPED_TRACE(place);
    const std::string cut = folder.Write("cut.xls", whole.substr(0, whole.size() * place / kPlaces));
    if (Refusal(cut).empty()) {
      EXPECT_EQ(CellsOf(*Office().OpenWorkbook(cut)), cells);
    }
    std::string changed = whole;
    for (std::size_t at = changed.size() * place / kPlaces; at < changed.size() && at % 300 != 0; ++at)
      changed[at] = static_cast<char>(at * 151 + place);
    Refusal(folder.Write("changed.xls", changed));
  }
  const std::size_t half = whole.size() / 2;
  const std::string zeros(half, '\0');
  EXPECT_NE(Refusal(folder.Write("first.xls", zeros + whole.substr(half))), "");
  EXPECT_NE(Refusal(folder.Write("second.xls", whole.substr(0, half) + zeros)), "");
}

// The bytes come from anywhere. Nothing is expected of them but an end.
TEST_F(Calc, InspectsAnyBytes) {
  const TemporaryFolder folder;
  const std::string whole = SaveOddCells(Office(), folder);
  std::map<std::uint32_t, std::string> marks;
  const qv::WorkbookFacts facts = qv::InspectBytes(whole);
  for (const auto& [place, error] : *facts.marks) marks[place >> 16] = error == nullptr ? "truth" : error;
  EXPECT_EQ(marks, (std::map<std::uint32_t, std::string>{{9, "truth"},
                                                         {10, "truth"},
                                                         {15, "#DIV/0!"},
                                                         {16, "#N/A"},
                                                         {17, "#VALUE!"},
                                                         {18, "#VALUE!"},
                                                         {19, "#NAME?"},
                                                         {25, "truth"}}));
  std::minstd_rand random(1);
  for (int turn = 0; turn < 20'000; ++turn) {
    std::string bytes = whole;
    for (int change = 0; change < 4; ++change) bytes[random() % bytes.size()] = static_cast<char>(random());
    try {
      qv::InspectBytes(
          std::string_view(bytes).substr(0, turn % 3 == 0 ? random() % bytes.size() : bytes.size()));
    } catch (const qv::SpreadsheetError&) {
      // As good as finding something.
    }
  }
}

TEST_F(Calc, RefusesCellsAndPlacesThatAreNot) {
  const auto book = Office().AddWorkbook();
  const auto sheet = book->FindSheet("sheet1");
  for (const auto& [row, column] : {std::pair(0, 1), {1, 0}, {1 << 21, 1}, {1, 1 << 15}})
    EXPECT_THROW(sheet->ReadCell(row, column), qv::SpreadsheetError);
  EXPECT_EQ(book->FindSheet("sheet2"), nullptr);
  EXPECT_THROW(book->SaveAs("/proc/all.xls"), qv::SpreadsheetError);
}

TEST_F(Calc, NamesTheCellThatIsRefused) {
  const TemporaryFolder folder;
  const std::string source =
      folder.Write("locked.fods", Patched(TemporaryFolder::Read(TestFile("workbook/calc/odd-cells.fods")),
                                          "<table:table ", "<table:table table:protected=\"true\" "));
  const auto book = Office().OpenWorkbook(source);
  const auto sheet = book->ActiveSheet();
  sheet->WriteCell(30, 2, "first");
  sheet->WriteCell(31, 1, "1.50", 1.5);
  try {
    sheet->Flush();
    FAIL() << "nothing was refused";
  } catch (const qv::CellRefused& refused) {
    EXPECT_EQ(refused.row, 30);
    EXPECT_EQ(refused.column, 1);
  }
}

/// What another reader makes of the workbook; empty without that reader.
std::string AsAnotherReaderReads(const std::string& path) {
  const std::string command =
      "/usr/bin/python3 '" + TestFile("workbook/calc/read-workbook.py") + "' '" + path + "'";
  std::string output;
  std::array<char, 4096> block;
  FILE* const pipe = popen(command.c_str(), "r");
  while (pipe != nullptr && std::fgets(block.data(), block.size(), pipe) != nullptr) output += block.data();
  if (pipe != nullptr) pclose(pipe);
  return output;
}

TEST_F(Calc, WritesPartProgramsThatOtherReadersUnderstand) {
  const TemporaryFolder folder;
  CXLSAssembly engine;
  engine.StartLine = 2;
  engine.FormatName = "Form1";
  engine.Columns(RecordKind::PartPrograms) = {"PartName", "ToolType", "ToolShape", "HoleType", "BendAngle"};
  workbook::AddProgram(engine, "0012", {"RO", "SQ"});
  ASSERT_TRUE(engine.Export((folder / "out.xls").c_str()));

  std::string name;
  CXLSAssembly().ReadFormatName(name, (folder / "out.xls").c_str());
  EXPECT_EQ(name, "Form1");

  const std::string read = AsAnotherReaderReads(folder / "out.xls");
  if (read.empty()) GTEST_SKIP() << "NOT TESTED: python3-xlrd is not installed";
  EXPECT_EQ(read,
            "80\n"
            "Sheet1 1:[FMT_Name=Form1] | 1:PartName | 1:0012\n"
            "Sheet2 1:[FMT_Name=Form1] 0: | 1:ToolType 1:ToolShape | 1:RO 2:0 | 1:SQ 2:1\n"
            "Sheet3 1:[FMT_Name=Form1] | 1:HoleType\n"
            "Sheet4 1:[FMT_Name=Form1] | 1:BendAngle\n");
}

template <class Record>
class CalcRoundTrip : public SharedOffice {};
TYPED_TEST_SUITE(CalcRoundTrip, workbook::KindsBothWays);

TYPED_TEST(CalcRoundTrip, GivesTheRecordsBack) {
  const TemporaryFolder folder;
  const std::string path = folder / "out.xls";
  std::vector<workbook::Texts> rows = workbook::ExpectRoundTrip<TypeParam>(path.c_str());
  std::string expected;
  for (const workbook::Texts& row : rows) {
    expected += expected.empty() ? "80\nSheet1 " : " | ";
    for (const std::string& cell : row) expected += (&cell == &row.front() ? "" : " ") + cell;
  }
  const std::string read = AsAnotherReaderReads(path);
  if (read.empty()) GTEST_SKIP() << "NOT TESTED: python3-xlrd is not installed";
  EXPECT_EQ(read.substr(0, expected.size() + 1), expected + "\n");  // part programs have further sheets
}

}  // namespace
