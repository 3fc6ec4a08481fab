#pragma once

#include "engines/WrittenCells.h"
#include "engines/columns/ColumnTables.h"
#include "engines/columns/ResolvedColumns.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "text/Phrases.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace qv {

/// The number that a sheet can hold in the text's place without losing anything of it; nothing where it
/// cannot.
std::optional<double> SheetNumber(std::string_view text);

/// Writes the columns of one level of a kind of record into one sheet: the header at the start line, then row
/// after row. Skipped columns leave no gap, unknown ones an empty column under their header.
template <class Record>
class SheetWriter {
 public:
  SheetWriter(Worksheet& sheet, const std::vector<std::string>& keywords, ColumnLevel level,
              const FileDiagnostics& diagnostics, ProgressMeter& meter)
      : sheet_(sheet), level_(level), diagnostics_(diagnostics), checks_(diagnostics), meter_(meter) {
    const ResolvedColumns<Record> columns = ResolveForWriting<Record>(keywords);
    for (std::size_t index = 0; index < keywords.size(); ++index)
      if (!IsGroupColumn(keywords[index]) && LevelOf(columns[index]) == level)
        cells_.push_back({&keywords[index], columns[index]});
  }

  /// Makes ready for all rows that there will be. Throws SpreadsheetError where the sheet cannot hold them:
  /// an application would cut what is beyond the end when it saves, and say nothing.
  template <class Records>
  void Expect(std::int32_t startLine, const Records& records) const {
    std::int64_t rows = 0;
    for (std::size_t index = 0; index < records.Size(); ++index)
      rows += static_cast<std::int64_t>(CountRows(*records[index]));
    const auto columns = static_cast<std::int64_t>(cells_.size());
    Check(std::max(startLine, 0) + rows, kMaxRows, " rows");
    Check(columns, kMaxColumns, " columns");
    meter_.Expect(rows * columns);
  }

  /// Keeps texts what they are where an application would make numbers and dates of them. Columns of numbers
  /// keep the general format, so that a person can sum them.
  void FormatColumns() {
    for (std::size_t index = 0; index < cells_.size(); ++index)
      if (!IsNumber(cells_[index])) sheet_.FormatAsText(static_cast<std::int32_t>(index + 1));
  }

  /// A start line below 1 is no row: the sheet has no header then.
  void WriteHeader(std::int32_t startLine) {
    row_ = startLine > 0 ? startLine : 0;
    for (std::size_t index = 0; index < cells_.size(); ++index) {
      if (cells_[index].column == nullptr) ReportUnknown(*cells_[index].keyword);
      if (row_ > 0) WriteCell(index, *cells_[index].keyword, {});
    }
  }

  /// Writes the next rows: one for the record itself, or one for each element of its list.
  void Write(const Record& record) {
    const std::size_t rows = CountRows(record);
    for (std::size_t element = 0; element < rows; ++element) WriteRow(record, element);
  }

  /// To be called after the last record. Returns how many cells the application refused; each was reported.
  std::size_t Finish() {
    Attempt([this] { sheet_.Flush(); });
    return refused_;
  }

 private:
  // What a sheet of an Excel 97-2003 workbook has.
  static constexpr std::int64_t kMaxRows = 65536;
  static constexpr std::int64_t kMaxColumns = 256;

  struct Cell {
    const std::string* keyword;
    const Column<Record>* column;  // null for an unknown one
  };

  static ColumnLevel LevelOf(const Column<Record>* column) {
    return column == nullptr ? ColumnLevel::Record : column->level;
  }

  static bool IsNumber(const Cell& cell) {
    return cell.column != nullptr &&
           (cell.column->writtenAs == CellForm::Whole || cell.column->writtenAs == CellForm::Real);
  }

  void WriteCell(std::size_t index, std::string_view text, std::optional<double> number) {
    Attempt([&] {
      sheet_.WriteCell(static_cast<std::int32_t>(row_), static_cast<std::int32_t>(index + 1), text, number);
    });
  }

  /// The cells after a refused one are written all the same, so that all are known that are refused.
  template <class Call>
  void Attempt(Call call) {
    try {
      call();
    } catch (const CellRefused& refused) {
      ++refused_;
      const auto index = static_cast<std::size_t>(refused.column - 1);
      diagnostics_.Report(DiagnosticCode::SpreadsheetFailed, refused.row,
                          index < cells_.size() ? *cells_[index].keyword : std::string(), refused.text, {},
                          QuotedBriefly(refused.text) + " cannot be written: " + refused.what());
    }
  }

  static void Check(std::int64_t needed, std::int64_t max, const std::string& what) {
    if (needed > max)
      throw SpreadsheetError("it would have " + std::to_string(needed) + what +
                             ", and a workbook of this type has no more than " + std::to_string(max));
  }

  std::size_t CountRows(const Record& record) const {
    return level_ == ColumnLevel::Record ? 1 : CountElements(record);
  }

  /// Any of the level's columns knows how long the list is.
  std::size_t CountElements(const Record& record) const {
    return cells_.empty() ? 0 : cells_.front().column->count(record);
  }

  void WriteRow(const Record& record, std::size_t element) {
    ++row_;
    for (std::size_t index = 0; index < cells_.size(); ++index) {
      const Cell& cell = cells_[index];
      if (cell.column == nullptr) continue;
      text_.Clear();
      const bool isWhole = cell.column->write(record, element, text_);
      if (checks_.AreWanted()) checks_.Check(row_, *cell.keyword, text_.View(), isWhole);
      WriteCell(index, text_.View(), IsNumber(cell) ? SheetNumber(text_.View()) : std::nullopt);
    }
    if (!meter_.Advance(static_cast<std::int64_t>(cells_.size()))) throw SpreadsheetError("it was cancelled");
  }

  void ReportUnknown(const std::string& keyword) const {
    diagnostics_.Report(DiagnosticCode::UnknownColumn, row_, keyword, {}, {},
                        "no such column in a list of this kind; its cells stay empty");
  }

  Worksheet& sheet_;
  ColumnLevel level_;
  const FileDiagnostics& diagnostics_;
  const WrittenCellChecks checks_;
  ProgressMeter& meter_;
  std::vector<Cell> cells_;
  std::int64_t row_ = 0;  // the last one written
  std::size_t refused_ = 0;
  TextBuffer text_;
};

}  // namespace qv
