#pragma once

#include "engines/FieldSplitter.h"
#include "engines/FileReport.h"
#include "engines/columns/ColumnTables.h"
#include "engines/columns/ResolvedColumns.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace qv {

/// Builds records from rows: the n-th field of a row belongs to the n-th keyword of the format's column list.
template <class Record>
class RecordBuilder {
 public:
  /// Keywords that the kind does not know are told once, as of `headerLine`.
  RecordBuilder(const std::vector<std::string>& keywords, const FileReport& report, std::int64_t headerLine)
      : keywords_(keywords), columns_(ResolveForReading<Record>(keywords)), report_(report) {
    for (const Column<Record>* column : columns_) {
      readers_.push_back(column != nullptr ? column->read : ReadNothing);
      if (column != nullptr && column->flag != nullptr) flags_.push_back(column->flag);
    }
    if (report_.IsWanted()) TellUnknownColumns(headerLine);
  }

  std::size_t ColumnCount() const { return columns_.size(); }

  /// Fills a fresh record; false when the row gives none. `text` is the row as it stands in the file, for
  /// remarks.
  bool Build(Record& record, const FieldViews& row, std::int64_t line, std::string_view text) const {
    if (KindTraits<Record>::kSkipsEmptyRows && row.total == 0) {
      TellLeftOut(line, text, "the row is empty");
      return false;
    }
    const std::size_t count = std::min(columns_.size(), row.fields.size());
    const std::size_t read = report_.IsWanted() ? ReadCells(record, row.fields.first(count), line)
                                                : ReadCells(record, row.fields.first(count));
    if (read < count) {
      TellLeftOut(line, text, "the cell " + keywords_[read] + " is empty");
      return false;
    }
    for (bool Record::*flag : flags_) record.*flag = true;
    if (report_.IsWanted()) TellLength(row, line, text);
    return true;
  }

 private:
  using Fields = std::span<const std::string_view>;
  using Reader = Remark (*)(Record& record, std::string_view text, std::string* stored);

  static Remark ReadNothing(Record&, std::string_view, std::string*) { return Remark::None; }

  /// Returns how many cells were read; fewer than there are when one of them ends the row.
  std::size_t ReadCells(Record& record, Fields fields) const {
    const Reader* const readers = readers_.data();
    for (std::size_t rank = 0; rank < fields.size(); ++rank)
      if (readers[rank](record, fields[rank], nullptr) == Remark::AbandonRow) return rank;
    return fields.size();
  }

  /// The same with remarks.
  std::size_t ReadCells(Record& record, Fields fields, std::int64_t line) const {
    std::string stored;
    for (std::size_t rank = 0; rank < fields.size(); ++rank) {
      const Remark remark = readers_[rank](record, fields[rank], &stored);
      if (remark == Remark::AbandonRow) return rank;
      if (remark != Remark::None) report_.TellCell(remark, line, keywords_[rank], fields[rank], stored);
      stored.clear();
    }
    return fields.size();
  }

  void TellUnknownColumns(std::int64_t headerLine) const {
    if (keywords_.empty())
      report_.Tell(DiagnosticCode::NoColumns, headerLine, {}, {}, {},
                   "the format has no columns; no cell is read");
    for (std::size_t rank = 0; rank < columns_.size(); ++rank)
      if (columns_[rank] == nullptr && !Matches(KindTraits<Record>::kImportMatch, "Ignore", keywords_[rank]))
        report_.Tell(DiagnosticCode::UnknownColumn, headerLine, keywords_[rank], {}, {},
                     "no such column in a list of this kind; its cells are ignored");
  }

  void TellLeftOut(std::int64_t line, std::string_view text, const std::string& reason) const {
    if (report_.IsWanted())
      report_.Tell(DiagnosticCode::RowLeftOut, line, {}, text, {}, "row left out: " + reason);
  }

  void TellLength(const FieldViews& row, std::int64_t line, std::string_view text) const {
    if (columns_.empty()) return;
    const std::string counts = Counted(row.total, "field") + " for " + Counted(columns_.size(), "column");
    if (row.total > columns_.size())
      report_.Tell(DiagnosticCode::RowTooLong, line, {}, text, {}, counts + "; the surplus is ignored");
    // A last cell that is empty looks like no cell at all.
    const bool lastIsEmpty = row.droppedEmptyLast && row.total + 1 == columns_.size();
    if (row.total < columns_.size() && !lastIsEmpty)
      report_.Tell(DiagnosticCode::RowTooShort, line, {}, text, {},
                   counts + "; the missing ones keep their defaults");
  }

  const std::vector<std::string>& keywords_;
  ResolvedColumns<Record> columns_;
  std::vector<Reader> readers_;  // of the columns
  std::vector<bool Record::*> flags_;
  const FileReport& report_;
};

}  // namespace qv
