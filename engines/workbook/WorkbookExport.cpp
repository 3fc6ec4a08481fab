#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "engines/text/FormatNameLine.h"
#include "engines/workbook/SheetWriter.h"
#include "platform/ReplacingFile.h"
#include "text/Numbers.h"

#include <charconv>
#include <cmath>
#include <utility>

namespace qv {
namespace {

/// The sheet of that name; a new one where a new workbook has fewer sheets, or calls them otherwise.
std::unique_ptr<Worksheet> TakeSheet(Workbook& workbook, const char* name) {
  auto sheet = workbook.FindSheet(name);
  return sheet != nullptr ? std::move(sheet) : workbook.AddSheet();
}

template <class Record>
class WorkbookTarget final : public RecordTarget {
 public:
  WorkbookTarget(CAssemblyFile& engine, const FileDiagnostics& diagnostics)
      : engine_(engine),
        keywords_(engine.Columns(kRecordKindOf<Record>)),
        records_(engine.StagedRecords.Of<Record>()),
        diagnostics_(diagnostics),
        meter_(diagnostics.File(), FileProgress::Work::Writing, FileProgress::Unit::Cells),
        file_(diagnostics.File(), WorkingPlace::BesideTarget) {
    if (file_.WorkingPath().empty()) Fail(DiagnosticCode::FileNotWritten, file_.Reason());
  }

  bool Put(const void* record) override {
    if (hasFailed_) return false;
    records_.Begin() = *static_cast<const Record*>(record);
    records_.Keep();
    return true;
  }

  void PutStaged() override {}

  bool Finish() override {
    if (!hasFailed_ && !std::exchange(isFinished_, true)) WriteWorkbook();
    return !hasFailed_;
  }

  bool Commit() override {
    if (!Finish()) return false;
    return file_.Commit() || Fail(DiagnosticCode::FileNotWritten, file_.Reason());
  }

  bool HasFailed() const override { return hasFailed_; }

 private:
  bool Fail(DiagnosticCode code, const std::string& reason) {
    hasFailed_ = true;
    diagnostics_.Report(code, 0, "cannot be written: " + reason);
    return false;
  }

  void WriteWorkbook() {
    std::string reason;
    const std::unique_ptr<SpreadsheetApplication> application = StartSpreadsheet(reason);
    if (application == nullptr) {
      Fail(DiagnosticCode::NoSpreadsheet, reason);
      return;
    }
    try {
      std::unique_ptr<Workbook> workbook = application->AddWorkbook();
      WriteSheets(*workbook);
      if (refused_ > 0)
        throw SpreadsheetError("the spreadsheet application refused " + Counted(refused_, "cell"));
      SaveAndQuit(*application, std::move(workbook));
    } catch (const SpreadsheetError& error) {
      Fail(meter_.IsCancelled() ? DiagnosticCode::Cancelled : DiagnosticCode::SpreadsheetFailed,
           error.what());
    }
  }

  void WriteSheets(Workbook& workbook) {
    std::unique_ptr<Worksheet> sheet = workbook.FindSheet("sheet1");
    if (sheet == nullptr)
      sheet = workbook.ActiveSheet();  // an application of another language calls it otherwise
    if (keywords_.empty()) {
      WriteFormatName(*sheet);
      sheet->Flush();
      return diagnostics_.ReportNoColumns(0, "no header and no rows written");
    }
    WriteSheet(*sheet, ColumnLevel::Record);
    if (kRecordKindOf<Record> != RecordKind::PartPrograms) return;
    WriteSheet(*TakeSheet(workbook, "sheet2"), ColumnLevel::UsedTools);
    WriteSheet(*TakeSheet(workbook, "sheet3"), ColumnLevel::Holes);
    WriteSheet(*workbook.AddSheet(), ColumnLevel::Bends);
    sheet->Activate();  // or a reader would find the sheet that was added last
  }

  void WriteSheet(Worksheet& sheet, ColumnLevel level) {
    SheetWriter<Record> writer(sheet, keywords_, level, diagnostics_, meter_);
    writer.Expect(engine_.StartLine, records_);
    writer.FormatColumns();
    WriteFormatName(sheet);
    writer.WriteHeader(engine_.StartLine);
    for (std::size_t index = 0; index < records_.Size(); ++index) writer.Write(*records_[index]);
    refused_ += writer.Finish();
  }

  void WriteFormatName(Worksheet& sheet) {
    if (engine_.StartLine > 1) sheet.WriteCell(1, 1, FormatNameLine(engine_.FormatName));
  }

  /// The application lets go of the file before it is put in its place.
  void SaveAndQuit(SpreadsheetApplication& application, std::unique_ptr<Workbook> workbook) {
    workbook->SaveAs(file_.WorkingPath());
    workbook->Close();
    workbook.reset();
    application.CloseWorkbooks();
    application.Quit();
  }

  const CAssemblyFile& engine_;
  const std::vector<std::string>& keywords_;
  RecordList<Record>& records_;
  const FileDiagnostics& diagnostics_;
  ProgressMeter meter_;
  ReplacingFile file_;
  std::size_t refused_ = 0;
  bool isFinished_ = false;
  bool hasFailed_ = false;
};

}  // namespace

// Sheets keep 15 digits, and of zero no sign.
std::optional<double> SheetNumber(std::string_view text) {
  constexpr int kDigits = 15;
  if (text.find_first_not_of("-.0123456789") != std::string_view::npos) return {};
  const Parsed<double> number = ParseReal(text);
  if (number.fault != NumberFault::None || (number.value == 0 && std::signbit(number.value))) return {};
  char kept[32];
  const char* const end =
      std::to_chars(kept, kept + sizeof kept, number.value, std::chars_format::general, kDigits).ptr;
  double again = 0;
  std::from_chars(kept, end, again);
  return again == number.value ? std::optional(again) : std::nullopt;
}

std::unique_ptr<RecordTarget> BeginWorkbookRecords(CAssemblyFile& engine, RecordKind kind,
                                                   const FileDiagnostics& diagnostics) {
  return MakeForKind<RecordTarget, WorkbookTarget, IsExported>(kind, engine, diagnostics);
}

}  // namespace qv
