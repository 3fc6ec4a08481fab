#include "engines/workbook/SheetRows.h"

#include "engines/CAssemblyFile.h"
#include "engines/RecordBuilder.h"

#include <algorithm>
#include <limits>

namespace qv {

OpenedSheet::OpenedSheet(const FileDiagnostics& diagnostics) : diagnostics_(diagnostics) {
  std::string reason;
  application_ = StartSpreadsheet(reason);
  if (application_ != nullptr) {
    Open();
  } else {
    Fail(DiagnosticCode::NoSpreadsheet, 0, "cannot be read: " + reason);
    ShowMessage("Error");
  }
}

OpenedSheet::OpenedSheet(const FileDiagnostics& diagnostics, std::shared_ptr<const FileSample> sample)
    : diagnostics_(diagnostics), sample_(std::move(sample)) {
  rows_ = lastRow_ = static_cast<std::int32_t>(sample_->cells.size());
  columns_ = rows_ == 0 ? 0 : static_cast<std::int32_t>(sample_->cells.front().size());
}

void OpenedSheet::Open() {
  DiagnosticCode code = DiagnosticCode::FileNotOpened;
  try {
    workbook_ = application_->OpenWorkbook(diagnostics_.File());
    code = DiagnosticCode::SpreadsheetFailed;
    auto sheet = workbook_->ActiveSheet();
    rows_ = lastRow_ = sheet->UsedRows();
    columns_ = sheet->UsedColumns();
    if (diagnostics_.IsWanted()) lastRow_ += sheet->FirstUsedRow() - 1;
    sheet_ = std::move(sheet);
  } catch (const SpreadsheetError& error) {
    Fail(code, 0, std::string("cannot be read: ") + error.what());
    workbook_.reset();
    application_.reset();
  }
}

std::string OpenedSheet::ReadCell(std::int32_t row, std::int32_t column) {
  if (hasFailed_) return {};
  if (sample_ != nullptr) {
    const bool isRead = row <= rows_ && column <= columns_;
    return isRead ? sample_->cells[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)]
                  : std::string();
  }
  try {
    return sheet_->ReadCell(row, column);
  } catch (const SpreadsheetError& error) {
    Fail(DiagnosticCode::SpreadsheetFailed, row, std::string("reading stopped here: ") + error.what());
  }
  return {};
}

void OpenedSheet::Close() {
  sheet_.reset();
  if (application_ == nullptr) return;
  try {
    workbook_->Close();
    application_->CloseWorkbooks();
    application_->Quit();
  } catch (const SpreadsheetError& error) {
    Fail(DiagnosticCode::SpreadsheetFailed, 0, std::string("cannot be closed: ") + error.what());
  }
  workbook_.reset();
  application_.reset();
}

void OpenedSheet::Fail(DiagnosticCode code, std::int64_t row, const std::string& message) {
  diagnostics_.Report(code, row, message);
  hasFailed_ = true;
}

namespace {

/// Keeps a header as the text engines keep a field of theirs.
void AppendHeader(TextList& headers, std::string_view text) {
  text = TrimField(text);
  if (text != "\"") headers.Append(text);
}

/// The rows of a workbook's active sheet, as the builders of records take them.
class SheetRows {
 public:
  static constexpr bool kHasTexts = false;

  SheetRows(const CAssemblyFile& engine, const FileDiagnostics& diagnostics)
      : headerRow_(std::max(engine.StartLine, 0)),
        diagnostics_(diagnostics),
        meter_(diagnostics.File(), FileProgress::Work::Reading, FileProgress::Unit::Cells),
        sheet_(engine.Sample == nullptr ? OpenedSheet(diagnostics) : OpenedSheet(diagnostics, engine.Sample)),
        row_(headerRow_),
        texts_(static_cast<std::size_t>(sheet_.Columns())) {}

  /// Reads the header row; false when the sheet has none. Below a start line of 1 the keywords take its
  /// place: all rows are data.
  bool ReadHeader(TextList& headers, const std::vector<std::string>& keywords) {
    headers.Clear();
    columns_ = keywords.size();
    for (std::int32_t column = 1; column <= sheet_.Columns(); ++column) {
      const auto index = static_cast<std::size_t>(column - 1);
      if (headerRow_ != 0)
        AppendHeader(headers, sheet_.ReadCell(headerRow_, column));
      else if (index < keywords.size())
        AppendHeader(headers, keywords[index]);
      if (sheet_.HasFailed()) return Finish();
    }
    if (!sheet_.IsOpen()) return false;
    if (headerRow_ > sheet_.LastRow()) {
      diagnostics_.ReportNoHeaderRow(sheet_.LastRow(), headerRow_);
      return Finish();
    }
    meter_.Expect(std::int64_t{std::max(sheet_.Rows() - headerRow_, 0)} * sheet_.Columns());
    return true;
  }

  /// Later cells are counted but not kept.
  void KeepAtMost(std::size_t fields) { keep_ = fields; }

  /// Goes to the next row; false, with the workbook closed, when there is none.
  bool Next() { return (row_ < sheet_.Rows() && ReadRow()) || Finish(); }

  const FieldViews& Row() const { return views_; }
  std::int64_t LineNumber() const { return row_; }
  bool HasFailed() const { return sheet_.HasFailed() || meter_.IsCancelled(); }

 private:
  bool ReadRow() {
    ++row_;
    for (std::size_t index = 0; index < texts_.size(); ++index)
      texts_[index] = sheet_.ReadCell(static_cast<std::int32_t>(row_), static_cast<std::int32_t>(index + 1));
    if (sheet_.HasFailed()) return false;
    if (!meter_.Advance(sheet_.Columns())) {
      diagnostics_.Report(DiagnosticCode::Cancelled, row_, "cancelled; reading stopped here");
      return false;
    }
    views_.Show(texts_, keep_);
    views_.total = CountFields();
    if (!diagnostics_.IsWanted()) return true;
    line_.clear();
    for (const std::string& cell : texts_) line_.append(&cell == &texts_.front() ? "" : "\t").append(cell);
    views_.line = line_;
    return true;
  }

  // A row is as wide as the sheet, but only what is filled in can be too much.
  std::size_t CountFields() const {
    std::size_t count = texts_.size();
    while (count > std::max<std::size_t>(std::min(columns_, texts_.size()), 1) && texts_[count - 1].empty())
      --count;
    return count;
  }

  // Always false.
  bool Finish() {
    if (sheet_.IsOpen() && !HasFailed()) ReportOutOfReach();
    sheet_.Close();
    return false;
  }

  void ReportOutOfReach() const {
    for (std::int64_t row = std::max<std::int64_t>(row_, sheet_.Rows()) + 1; row <= sheet_.LastRow(); ++row)
      diagnostics_.Report(DiagnosticCode::RowLeftOut, row,
                          "row left out: the sheet starts with empty rows, which put its last ones out of "
                          "reach; a text in the first row brings them back");
  }

  const std::int32_t headerRow_;  // 0: there is none
  const FileDiagnostics& diagnostics_;
  ProgressMeter meter_;
  OpenedSheet sheet_;
  std::int64_t row_;  // the last one read
  std::vector<std::string> texts_;
  std::string line_;         // the row as a text, for diagnostics
  std::size_t columns_ = 0;  // of the format
  std::size_t keep_ = std::numeric_limits<std::size_t>::max();
  FieldViews views_;
};

template <class Record>
using SheetRecords = BuiltRecords<Record, SheetRows>;

constexpr bool IsInWorkbooks(RecordKind kind) { return IsImported(kind) && IsExported(kind); }

}  // namespace

std::unique_ptr<RecordSource> OpenWorkbookRecords(CAssemblyFile& engine, RecordKind kind,
                                                  const FileDiagnostics& diagnostics) {
  return MakeForKind<RecordSource, SheetRecords, IsInWorkbooks>(kind, engine, diagnostics);
}

}  // namespace qv
