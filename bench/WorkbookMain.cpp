// Counts the calls that the import of a workbook makes, in an application in memory, and measures the import
// against reading the same cells and nothing else, in the platform's application.
// usage: qv_bench_workbook [ROWS [REPETITIONS]]

#include "engines/CXLSAssembly.h"
#include "platform/SpreadsheetApplication.h"
#include "records/PartInformation.h"
#include "tests/support/FakeSpreadsheet.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

const std::vector<std::string> kColumns = {"PartName",          "PartNumber", "PartQuantity", "MaterialType",
                                           "MaterialThickness", "Machine",    "Customer",     "PartComment"};

void SetUp(CXLSAssembly& engine) {
  engine.StartLine = 1;
  engine.Columns(RecordKind::Parts) = kColumns;
}

void WriteWorkbook(const std::string& path, int rows) {
  CXLSAssembly engine;
  SetUp(engine);
  auto& parts = engine.StagedRecords.Of<PartInformation>();
  for (int row = 0; row < rows; ++row) {
    parts.Begin().SetPartName(("Bracket " + std::to_string(row)).c_str());
    parts.Keep();
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

/// The least that an import can do.
void ReadCells(const std::string& path) {
  std::string reason;
  const auto application = qv::StartSpreadsheet(reason);
  const auto workbook = application->OpenWorkbook(path);
  const auto sheet = workbook->ActiveSheet();
  const std::int32_t rows = sheet->UsedRows();
  const std::int32_t columns = sheet->UsedColumns();
  for (std::int32_t row = 1; row <= rows; ++row)
    for (std::int32_t column = 1; column <= columns; ++column) sheet->ReadCell(row, column);
}

template <class Work>
double Seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double>& values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void CountCalls(int rows) {
  const TemporaryFolder folder;
  FakeSpreadsheet office;
  WriteWorkbook(folder / "parts.xls", rows);
  office.Calls.clear();
  Import(folder / "parts.xls", rows);
  const auto cells = static_cast<std::size_t>(rows + 1) * kColumns.size();
  std::printf("calls of an import of %d x %zu cells: %zu, which is the cells and %zu\n", rows + 1,
              kColumns.size(), office.Calls.size(), office.Calls.size() - cells);
}

void Measure(int rows, int repetitions) {
  std::string reason;
  if (qv::StartSpreadsheet(reason) == nullptr) {
    std::printf("not measured: %s\n", reason.c_str());
    return;
  }
  const TemporaryFolder folder;
  const std::string path = folder / "parts.xls";
  WriteWorkbook(path, rows);
  std::vector<double> imports, floors;
  for (int turn = 0; turn < repetitions; ++turn) {
    imports.push_back(Seconds([&] { Import(path, rows); }));
    floors.push_back(Seconds([&] { ReadCells(path); }));
  }
  const double import = Median(imports);
  const double floor = Median(floors);
  std::printf("import / reading the cells alone: %.2f (%.2f s / %.2f s, minima %.2f s / %.2f s)\n",
              import / floor, import, floor, imports.front(), floors.front());
}

}  // namespace

int main(int count, char** arguments) {
  const int rows = count > 1 ? std::atoi(arguments[1]) : 500;
  const int repetitions = count > 2 ? std::atoi(arguments[2]) : 5;
  CountCalls(rows);
  Measure(rows, repetitions);
  return 0;
}
