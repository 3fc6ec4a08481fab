#include "engines/TextImport.h"

#include "engines/CTxtAssembly.h"
#include "engines/LineReader.h"
#include "engines/RecordBuilder.h"
#include "engines/RowReader.h"
#include "engines/TextLineRemarks.h"

#include <memory>

namespace qv {
namespace {

/// Takes the next line as the header row; false when there is none.
bool ReadHeader(CTxtAssembly& engine, RowReader& rows, TextLineRemarks& remarks) {
  if (!rows.Next()) return false;
  remarks.Tell(rows.LineNumber(), rows.Row());
  for (const std::string_view field : rows.Row().fields) engine.HeaderFields.Append(field);
  return true;
}

template <class Record>
void ReadRows(CTxtAssembly& engine, RowReader& rows, const FileReport& report, TextLineRemarks& remarks) {
  const RecordBuilder<Record> builder(engine.Columns(KindTraits<Record>::kKind), report, rows.LineNumber());
  rows.KeepAtMost(builder.ColumnCount());
  RecordList<Record>& records = engine.StagedRecords.Of<Record>();
  while (rows.Next()) {
    const FieldViews& row = rows.Row();
    remarks.Tell(rows.LineNumber(), row);
    if (builder.Build(records.Begin(), row, rows.LineNumber(), row.line) && !records.Keep()) break;
  }
}

}  // namespace

template <class Record>
bool ImportRows(CTxtAssembly& engine, const char* path) {
  const FileReport report(path);
  std::string reason;
  const std::unique_ptr<OpenFile> file = Files().Open(path, OpenMode::Read, reason);
  engine.HeaderFields.Clear();
  if (file == nullptr) {
    report.Tell(DiagnosticCode::FileNotOpened, 0, {}, {}, {}, "cannot be read: " + reason);
    return true;
  }
  LineReader lines(*file);
  TextLineRemarks remarks(report);
  std::string_view skipped;
  for (int number = 1; number < engine.StartLine && lines.Next(skipped); ++number)
    remarks.TellStart(skipped, number);
  RowReader rows(engine, lines);
  const bool readsRows = !engine.ReadHeaderOnly;
  if (ReadHeader(engine, rows, remarks)) {
    if (readsRows) ReadRows<Record>(engine, rows, report, remarks);
    engine.ReadHeaderOnly = false;
  } else if (readsRows && !lines.HasFailed() && rows.LineNumber() > 0) {
    report.TellNoHeaderRow(rows.LineNumber(), engine.StartLine);
  }
  if (readsRows && lines.WasCutOff())
    report.Tell(DiagnosticCode::EndOfText, rows.LineNumber(), {}, {}, {},
                "the text ends here with the byte 1A (hex); what the file holds behind it is not read");
  if (lines.HasFailed())
    report.Tell(DiagnosticCode::FileNotOpened, rows.LineNumber(), {}, {}, {},
                "reading stopped here: the system reports an error");
  return true;
}

template bool ImportRows<PartInformation>(CTxtAssembly&, const char*);
template bool ImportRows<ToolInformation>(CTxtAssembly&, const char*);
template bool ImportRows<MaterialInfomation>(CTxtAssembly&, const char*);
template bool ImportRows<ShtInfo>(CTxtAssembly&, const char*);
template bool ImportRows<PrtInfo>(CTxtAssembly&, const char*);
template bool ImportRows<MatAmncITInfo>(CTxtAssembly&, const char*);
template bool ImportRows<MatLibraryInfo>(CTxtAssembly&, const char*);

}  // namespace qv
