// Counts the calls that the import and the export of a workbook make, in an application in memory, and
// measures both in LibreOffice against what it takes itself to convert the same file. usage:
// qv_bench_workbook [ROWS [REPETITIONS]]

#include "engines/workbook/CXLSAssembly.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/spreadsheet/calc/CalcPlugin.h"
#include "records/PartInformation.h"
#include "tests/support/FakeSpreadsheet.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/workbook/RecordRows.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using workbook::Texts;

// A parts list as shops have them: seventeen columns, four of them numbers.
const Texts kColumns = {"PartName",     "PartNumber",  "FullPath",     "PartQuantity",      "DueDate",
                        "MaterialType", "Revision",    "Machine",      "MaterialThickness", "Customer",
                        "BinID",        "PartComment", "RouterNumber", "Priority",          "WorkOrderNumber",
                        "Coating",      "MaterialCode"};

void SetUp(CXLSAssembly& engine) {
  engine.StartLine = 1;
  engine.Columns(RecordKind::Parts) = kColumns;
}

void Export(const std::string& path, int rows) {
  CXLSAssembly engine;
  SetUp(engine);
  Texts cells(kColumns.size());
  for (int row = 0; row < rows; ++row) {
    for (std::size_t index = 0; index < cells.size(); ++index)
      cells[index] = kColumns[index].substr(0, 8) + " " + std::to_string(row);
    for (const std::size_t number : {3, 10, 13}) cells[number] = std::to_string(row % 10);
    cells[8] = "1.5";
    workbook::Add<PartInformation>(engine, kColumns, cells);
  }
  if (!engine.Export(path.c_str())) std::exit(1);
}

void Import(const std::string& path, int rows) {
  CXLSAssembly engine;
  SetUp(engine);
  if (!engine.ImportParts(path.c_str()) ||
      engine.StagedRecords.Of<PartInformation>().Size() != static_cast<std::size_t>(rows))
    std::exit(1);
}

void CountCalls(int rows) {
  const TemporaryFolder folder;
  FakeSpreadsheet office;
  const auto count = [&](const char* what, auto work) {
    office.Calls.clear();
    work();
    const auto cells = static_cast<double>((rows + 1) * static_cast<int>(kColumns.size()));
    std::printf("%s of %d x %zu cells: %.3f calls a cell\n", what, rows + 1, kColumns.size(),
                static_cast<double>(office.Calls.size()) / cells);
  };
  count("export", [&] { Export(folder / "parts.xls", rows); });
  count("import", [&] { Import(folder / "parts.xls", rows); });
}

template <class Work>
double Seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// What the office itself takes, with a profile that it has used before.
void Convert(const std::string& office, const TemporaryFolder& folder, const std::string& path,
             const char* to) {
  const std::string line = "'" + office + "/soffice' --headless '-env:UserInstallation=file://" +
                           folder / "profile" + "' --convert-to " + to + " --outdir '" +
                           folder / "converted" + "' '" + path + "' >/dev/null 2>&1";
  if (std::system(line.c_str()) != 0) std::exit(1);
}

void Report(const char* what, std::vector<double> ours, std::vector<double> theirs) {
  std::sort(ours.begin(), ours.end());
  std::sort(theirs.begin(), theirs.end());
  const double our = ours[ours.size() / 2], their = theirs[theirs.size() / 2];
  std::printf("%s / soffice --convert-to: %.2f (%.2f s / %.2f s, minima %.2f s / %.2f s)\n", what,
              our / their, our, their, ours.front(), theirs.front());
}

void Measure(int rows, int repetitions) {
  const std::string office = qv::FindOfficeFolder();
  if (office.empty()) {
    std::printf("not measured: LibreOffice is not installed\n");
    return;
  }
  const TemporaryFolder folder;
  const std::string path = folder / "parts.xls";
  Export(path, rows);
  Convert(office, folder, path, "csv");
  const std::string text = folder / "converted/parts.csv";
  std::vector<double> imports, fromWorkbooks, exports, toWorkbooks;
  for (int turn = 0; turn < repetitions; ++turn) {
    imports.push_back(Seconds([&] { Import(path, rows); }));
    fromWorkbooks.push_back(Seconds([&] { Convert(office, folder, path, "csv"); }));
    exports.push_back(Seconds([&] { Export(path, rows); }));
    toWorkbooks.push_back(Seconds([&] { Convert(office, folder, text, "xls"); }));
  }
  Report("import", imports, fromWorkbooks);
  Report("export", exports, toWorkbooks);
}

}  // namespace

int main(int count, char** arguments) {
  const int rows = count > 1 ? std::atoi(arguments[1]) : 2016;
  const int repetitions = count > 2 ? std::atoi(arguments[2]) : 5;
  CountCalls(rows);
  Measure(rows, repetitions);
  return 0;
}
