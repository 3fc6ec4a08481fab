#include "support/CaseFile.h"
#include "support/TemporaryFolder.h"
#include "workbook/RoundTrip.h"
#include "workbook/calc/SharedOffice.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace {

using workbook::Texts;

using Calc = SharedOffice;

TEST_F(Calc, TurnsCellsOfEveryMakeIntoText) {
  const auto book = Office().OpenWorkbook(TestFile("workbook/calc/odd-cells.fods"));
  const auto sheet = book->ActiveSheet();
  for (const auto& row : ReadTable("workbook/calc/odd-cells.table"))
    EXPECT_EQ(sheet->ReadCell(std::stoi(row[0]), 1), row[1]) << row[0];
  // The used range starts in row 3.
  EXPECT_EQ(sheet->UsedRows(), 22);
  EXPECT_EQ(sheet->UsedColumns(), 1);
}

TEST_F(Calc, KeepsTextAsTextAndWhatItCannotDecodeAsAMark) {
  const TemporaryFolder folder;
  const std::pair<const char*, const char*> cells[] = {{"0012", "0012"},
                                                       {"=1+1", "=1+1"},
                                                       {"1.500000", "1.500000"},
                                                       {"'x", "'x"},
                                                       {" x ", " x "},
                                                       {"TRUE", "TRUE"},
                                                       {"31.01.2024", "31.01.2024"},
                                                       {"a\tb\nc", "a\tb\nc"},
                                                       {"日本", "日本"},
                                                       {"Z\xFCrich", "Z\xEF\xBF\xBDrich"},
                                                       {"", ""}};
  {
    const auto book = Office().AddWorkbook();
    const auto sheet = book->FindSheet("SHEET1");
    for (int row = 1; const auto& [written, read] : cells) sheet->WriteCell(row++, 2, written);
    book->SaveAs(folder / "texts.xls");
    book->Close();
  }
  const auto book = Office().OpenWorkbook(folder / "texts.xls");
  const auto sheet = book->ActiveSheet();
  for (int row = 1; const auto& [written, read] : cells) EXPECT_EQ(sheet->ReadCell(row++, 2), read);
  EXPECT_EQ(folder.Names(), (std::set<std::string>{"texts.xls"}));
}

TEST_F(Calc, ReadsTheSheetThatTheFileNamesAsActive) {
  const TemporaryFolder folder;
  {
    const auto book = Office().AddWorkbook();
    book->FindSheet("sheet1")->WriteCell(1, 1, "first");
    book->AddSheet()->WriteCell(1, 1, "second");
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

TEST_F(Calc, RefusesWhatIsNoWorkbook) {
  const TemporaryFolder folder;
  folder.Write("noise.xls", std::string("\x7F"
                                        "ELF\0\1\2",
                                        7));
  folder.Write("page.xls", "<!DOCTYPE html><html><body><p>no table</p></body></html>");
  folder.Write("empty.xls", "");
  for (const char* name : {"missing.xls", "."})
    EXPECT_THROW(Office().OpenWorkbook(folder / name), qv::SpreadsheetError) << name;
  try {
    Office().OpenWorkbook(folder / "missing.xls");
  } catch (const qv::SpreadsheetError& error) {
    EXPECT_STREQ(error.what(), "No such file or directory");
  }
  for (const char* name : {"noise.xls", "page.xls", "empty.xls"}) {
    try {
      Office().OpenWorkbook(folder / name)->ActiveSheet();
    } catch (const qv::SpreadsheetError&) {
      // Refusing it is as good as finding nothing in it; hanging or crashing is not.
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

/// What a program prints; empty when there is no such program.
std::string OutputOf(const std::string& command) {
  std::string output;
  std::array<char, 4096> block;
  FILE* const pipe = popen(command.c_str(), "r");
  while (pipe != nullptr && std::fgets(block.data(), block.size(), pipe) != nullptr) output += block.data();
  if (pipe != nullptr) pclose(pipe);
  return output;
}

/// The format's version, then each sheet's name and cells, with their types; empty without that reader.
std::string AsAnotherReaderReads(const std::string& path) {
  if (OutputOf("/usr/bin/python3 -c 'import xlrd; print(1)' 2>/dev/null").empty()) return {};
  const TemporaryFolder folder;
  const std::string script = folder.Write("read.py", R"(import sys, xlrd
book = xlrd.open_workbook(sys.argv[1])
print(book.biff_version)
for sheet in book.sheets():
    rows = [' '.join('%d:%s' % (cell.ctype, cell.value) for cell in sheet.row(row)) for row in range(sheet.nrows)]
    sys.stdout.buffer.write((sheet.name + ' ' + ' | '.join(rows) + '\n').encode())
    sys.stdout.flush()
)");
  return OutputOf("/usr/bin/python3 '" + script + "' '" + path + "'");
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
            "Sheet2 1:[FMT_Name=Form1] 0: | 1:ToolType 1:ToolShape | 1:RO 1:0 | 1:SQ 1:1\n"
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
    for (const std::string& cell : row)
      expected += (&cell == &row.front() ? "" : " ") + std::string(cell.empty() ? "0:" : "1:") + cell;
  }
  const std::string read = AsAnotherReaderReads(path);
  if (read.empty()) GTEST_SKIP() << "NOT TESTED: python3-xlrd is not installed";
  EXPECT_EQ(read.substr(0, expected.size() + 1), expected + "\n");  // part programs have further sheets
}

}  // namespace
