#include "engines/workbook/WorkbookExport.h"

#include "engines/CAssemblyFile.h"
#include "engines/FileReport.h"
#include "engines/FormatNameLine.h"
#include "engines/workbook/SheetWriter.h"
#include "platform/ReplacingFile.h"

namespace qv {
namespace {

/// The sheet of that name; a new one where a new workbook has fewer sheets, or calls them otherwise.
std::unique_ptr<Worksheet> TakeSheet(Workbook& workbook, const char* name) {
  auto sheet = workbook.FindSheet(name);
  return sheet != nullptr ? std::move(sheet) : workbook.AddSheet();
}

template <class Record>
void WriteSheet(Worksheet& sheet, const CAssemblyFile& engine, ColumnLevel level, const FileReport& report) {
  if (engine.StartLine > 1) sheet.WriteCell(1, 1, FormatNameLine(engine.FormatName));
  SheetWriter<Record> writer(sheet, engine.Columns(KindTraits<Record>::kKind), level, report);
  writer.CheckFits(engine.StartLine, engine.StagedRecords.Of<Record>());
  writer.WriteHeader(engine.StartLine);
  for (const Record* record : engine.StagedRecords.Of<Record>()) writer.Write(*record);
}

/// Writes the kind's records into the first sheet if the kind has columns.
template <class Record>
bool WriteKind(Worksheet& sheet, const CAssemblyFile& engine, const FileReport& report) {
  if (engine.Columns(KindTraits<Record>::kKind).empty()) return false;
  WriteSheet<Record>(sheet, engine, ColumnLevel::Record, report);
  return true;
}

/// The lists of part programs stand on sheets of their own.
void WriteLists(Workbook& workbook, const CAssemblyFile& engine, const FileReport& report) {
  WriteSheet<PrtInfo>(*TakeSheet(workbook, "sheet2"), engine, ColumnLevel::UsedTools, report);
  WriteSheet<PrtInfo>(*TakeSheet(workbook, "sheet3"), engine, ColumnLevel::Holes, report);
  WriteSheet<PrtInfo>(*workbook.AddSheet(), engine, ColumnLevel::Bends, report);
}

void WriteFirstKind(Workbook& workbook, const CAssemblyFile& engine, const FileReport& report) {
  const std::unique_ptr<Worksheet> sheet = TakeSheet(workbook, "sheet1");
  if (WriteKind<PartInformation>(*sheet, engine, report) ||
      WriteKind<ToolInformation>(*sheet, engine, report) ||
      WriteKind<MaterialInfomation>(*sheet, engine, report) || WriteKind<ShtInfo>(*sheet, engine, report) ||
      WriteKind<JobProgressInfo>(*sheet, engine, report))
    return;
  if (!WriteKind<PrtInfo>(*sheet, engine, report)) {
    if (engine.StartLine > 1) sheet->WriteCell(1, 1, FormatNameLine(engine.FormatName));
    report.Tell(DiagnosticCode::NoColumns, 0, {}, {}, {},
                "the format has no columns; no header and no rows written");
    return;
  }
  WriteLists(workbook, engine, report);
  sheet->Activate();  // or a reader would find the sheet that was added last
}

/// The application lets go of the file before it is put in its place.
void SaveAndQuit(SpreadsheetApplication& application, std::unique_ptr<Workbook> workbook,
                 const ReplacingFile& file) {
  workbook->SaveAs(file.WorkingPath());
  workbook->Close();
  workbook.reset();
  application.CloseWorkbooks();
  application.Quit();
}

}  // namespace

bool ExportWorkbook(CAssemblyFile& engine, const char* path) {
  // The lists of part programs go over their records once each, and no second application is started while
  // this one is at work.
  if (!engine.StagedRecords.TakeFed()) return false;
  const FileReport report(path);
  const auto fail = [&](DiagnosticCode code, const std::string& reason) {
    report.Tell(code, 0, {}, {}, {}, "cannot be written: " + reason);
    return false;
  };
  ReplacingFile file(path, WorkingPlace::BesideTarget);
  if (file.WorkingPath().empty()) return fail(DiagnosticCode::FileNotWritten, file.Reason());
  std::string reason;
  std::unique_ptr<SpreadsheetApplication> application = StartSpreadsheet(reason);
  if (application == nullptr) return fail(DiagnosticCode::NoSpreadsheet, reason);
  try {
    std::unique_ptr<Workbook> workbook = application->AddWorkbook();
    WriteFirstKind(*workbook, engine, report);
    SaveAndQuit(*application, std::move(workbook), file);
  } catch (const SpreadsheetError& error) {
    return fail(DiagnosticCode::SpreadsheetFailed, error.what());
  }
  application.reset();
  return file.Commit() || fail(DiagnosticCode::FileNotWritten, file.Reason());
}

}  // namespace qv
