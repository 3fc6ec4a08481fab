#pragma once

#include "engines/SkippedColumns.h"
#include "engines/WrittenCellRemarks.h"
#include "engines/columns/ColumnTables.h"
#include "engines/columns/ResolvedColumns.h"
#include "platform/SpreadsheetApplication.h"

#include <algorithm>
#include <string>
#include <vector>

namespace qv {

/// Writes the columns of one level of a kind of record into one sheet: the header at the start line, then row
/// after row. Skipped columns leave no gap, unknown ones an empty column under their header.
template <class Record>
class SheetWriter {
 public:
  SheetWriter(Worksheet& sheet, const std::vector<std::string>& keywords, ColumnLevel level,
              const FileReport& report)
      : sheet_(sheet), level_(level), report_(report), remarks_(report) {
    const ResolvedColumns<Record> columns = ResolveForWriting<Record>(keywords);
    for (std::size_t rank = 0; rank < keywords.size(); ++rank)
      if (!IsGroupColumn(keywords[rank]) && LevelOf(columns[rank]) == level)
        cells_.push_back({&keywords[rank], columns[rank]});
  }

  /// Throws SpreadsheetError where the sheet cannot hold all of it. An application would cut what is beyond
  /// the end when it saves, and say nothing.
  template <class Records>
  void CheckFits(std::int32_t startLine, const Records& records) const {
    std::int64_t rows = std::max(startLine, 0);
    for (const Record* record : records) rows += static_cast<std::int64_t>(CountRows(*record));
    Check(rows, kMostRows, " rows");
    Check(static_cast<std::int64_t>(cells_.size()), kMostColumns, " columns");
  }

  /// A start line below 1 is no row: the sheet has no header then.
  void WriteHeader(std::int32_t startLine) {
    row_ = startLine > 0 ? startLine : 0;
    for (std::size_t rank = 0; rank < cells_.size(); ++rank) {
      if (cells_[rank].column == nullptr) TellUnknown(*cells_[rank].keyword);
      if (row_ > 0) WriteCell(rank, *cells_[rank].keyword);
    }
  }

  /// The next rows: one for the record itself, or one for each element of its list.
  void Write(const Record& record) {
    const std::size_t rows = CountRows(record);
    for (std::size_t element = 0; element < rows; ++element) WriteRow(record, element);
  }

 private:
  // What a sheet of an Excel 97-2003 workbook has.
  static constexpr std::int64_t kMostRows = 65536;
  static constexpr std::int64_t kMostColumns = 256;

  struct Cell {
    const std::string* keyword;
    const Column<Record>* column;  // null for an unknown one
  };

  static ColumnLevel LevelOf(const Column<Record>* column) {
    return column == nullptr ? ColumnLevel::Record : column->level;
  }

  void WriteCell(std::size_t rank, std::string_view text) {
    sheet_.WriteCell(static_cast<std::int32_t>(row_), static_cast<std::int32_t>(rank + 1), text);
  }

  static void Check(std::int64_t needed, std::int64_t most, const std::string& what) {
    if (needed > most)
      throw SpreadsheetError("it would have " + std::to_string(needed) + what +
                             ", and a workbook of this type has no more than " + std::to_string(most));
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
    for (std::size_t rank = 0; rank < cells_.size(); ++rank) {
      const Cell& cell = cells_[rank];
      if (cell.column == nullptr) continue;
      text_.Clear();
      const bool isWhole = cell.column->write(record, element, text_);
      if (remarks_.AreWanted()) remarks_.Tell(row_, *cell.keyword, text_.View(), isWhole);
      WriteCell(rank, text_.View());
    }
  }

  void TellUnknown(const std::string& keyword) const {
    report_.Tell(DiagnosticCode::UnknownColumn, row_, keyword, {}, {},
                 "no such column in a list of this kind; its cells stay empty");
  }

  Worksheet& sheet_;
  ColumnLevel level_;
  const FileReport& report_;
  const WrittenCellRemarks remarks_;
  std::vector<Cell> cells_;
  std::int64_t row_ = 0;  // the last one written
  TextBuffer text_;
};

}  // namespace qv
