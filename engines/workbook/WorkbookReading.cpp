#include "engines/workbook/WorkbookReading.h"

#include "engines/FormatNameLine.h"
#include "platform/MessageBox.h"

namespace qv {
namespace {

void ReadActiveSheet(Workbook& workbook, const FileReport& report, const SheetReader& read) {
  const std::unique_ptr<Worksheet> cells = workbook.ActiveSheet();
  const std::int32_t rows = cells->UsedRows();
  OpenedSheet sheet{*cells, rows, cells->UsedColumns()};
  try {
    read(sheet);
  } catch (const SpreadsheetError& error) {
    report.Tell(DiagnosticCode::SpreadsheetFailed, sheet.row, {}, {}, {},
                std::string("reading stopped here: ") + error.what());
  }
}

}  // namespace

void ReadWorkbook(const char* path, const FileReport& report, const SheetReader& read) {
  std::string reason;
  const std::unique_ptr<SpreadsheetApplication> application = StartSpreadsheet(reason);
  if (application == nullptr) {
    report.Tell(DiagnosticCode::NoSpreadsheet, 0, {}, {}, {}, "cannot be read: " + reason);
    ShowMessage("Error");
    return;
  }
  DiagnosticCode code = DiagnosticCode::FileNotOpened;
  try {
    const std::unique_ptr<Workbook> workbook = application->OpenWorkbook(path);
    code = DiagnosticCode::SpreadsheetFailed;
    ReadActiveSheet(*workbook, report, read);
    workbook->Close();
    application->CloseWorkbooks();
    application->Quit();
  } catch (const SpreadsheetError& error) {
    report.Tell(code, 0, {}, {}, {}, std::string("cannot be read: ") + error.what());
  }
}

void ReadWorkbookFormatName(std::string& name, const char* path) {
  ReadWorkbook(path, FileReport(path), [&](OpenedSheet& sheet) {
    const std::string text = sheet.cells.ReadCell(1, 1);
    const std::size_t equals = text.find('=');
    const std::size_t bracket = text.find(']');
    if (IsFormatNameLine(text) && bracket != std::string::npos && equals < bracket)
      name = text.substr(equals + 1, bracket - equals - 1);
  });
}

}  // namespace qv
