#pragma once

#include "engines/FileDiagnostics.h"
#include "engines/RecordList.h"
#include "engines/RecordStreams.h"
#include "engines/columns/ColumnTables.h"
#include "engines/columns/ResolvedColumns.h"
#include "engines/text/FieldSplitter.h"
#include "format/FormatColumns.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace qv {

/// Builds records from rows: the n-th field of a row belongs to the n-th keyword of the format's column list.
template <class Record>
class RecordBuilder {
 public:
  /// Keywords that the kind does not know are reported once, as of `headerLine`.
  RecordBuilder(const std::vector<std::string>& keywords, const FileDiagnostics& diagnostics,
                std::int64_t headerLine, bool hasDecimalComma)
      : keywords_(keywords), columns_(ResolveForReading<Record>(keywords)), diagnostics_(diagnostics) {
    for (const Column<Record>* column : columns_) {
      readers_.push_back(column != nullptr ? column->read : ReadNothing);
      if (column != nullptr && column->flag != nullptr) flags_.push_back(column->flag);
    }
    if (hasDecimalComma)
      for (const Column<Record>* column : columns_)
        forms_.push_back(column != nullptr ? column->readAs : CellForm::None);
    if (diagnostics_.IsWanted()) ReportUnknownColumns(headerLine);
  }

  std::size_t ColumnCount() const { return columns_.size(); }

  /// Fills a fresh record; false when the row gives none.
  bool Build(Record& record, const FieldViews& row, std::int64_t line) {
    if (kRecordKindOf<Record> == RecordKind::Parts && row.total == 0) {
      ReportLeftOut(line, row.line, "the row is empty");
      return false;
    }
    const std::size_t count = std::min(columns_.size(), row.fields.size());
    const Fields fields = row.fields.first(count);
    const Fields cells = forms_.empty() ? fields : WithPoints(fields);
    const std::size_t read =
        diagnostics_.IsWanted() ? ReadCells(record, cells, fields, line) : ReadCells(record, cells);
    if (read < count) {
      ReportLeftOut(line, row.line, "the cell " + keywords_[read] + " is empty");
      return false;
    }
    for (bool Record::*flag : flags_) record.*flag = true;
    if (diagnostics_.IsWanted()) ReportLength(row, line);
    return true;
  }

 private:
  using Fields = std::span<const std::string_view>;
  using Reader = CellRemark (*)(Record& record, std::string_view text, std::string* stored);

  static CellRemark ReadNothing(Record&, std::string_view, std::string*) { return CellRemark::None; }

  /// The fields with decimal points in the columns of numbers.
  Fields WithPoints(Fields fields) {
    numbers_.resize(fields.size());
    cells_.assign(fields.begin(), fields.end());
    for (std::size_t index = 0; index < fields.size(); ++index) {
      if (forms_[index] != CellForm::Whole && forms_[index] != CellForm::Real) continue;
      numbers_[index].clear();
      AppendWithPoint(numbers_[index], fields[index], forms_[index] == CellForm::Whole);
      cells_[index] = numbers_[index];
    }
    return cells_;
  }

  /// Returns how many cells were read; fewer than there are when one of them ends the row.
  std::size_t ReadCells(Record& record, Fields fields) const {
    const Reader* const readers = readers_.data();
    for (std::size_t index = 0; index < fields.size(); ++index)
      if (readers[index](record, fields[index], nullptr) == CellRemark::AbandonRow) return index;
    return fields.size();
  }

  /// The same with diagnostics, which show the fields.
  std::size_t ReadCells(Record& record, Fields cells, Fields fields, std::int64_t line) const {
    std::string stored;
    for (std::size_t index = 0; index < fields.size(); ++index) {
      const CellRemark remark = readers_[index](record, cells[index], &stored);
      if (remark == CellRemark::AbandonRow) return index;
      if (remark != CellRemark::None)
        diagnostics_.ReportCell(remark, line, keywords_[index], fields[index], stored);
      stored.clear();
    }
    return fields.size();
  }

  void ReportUnknownColumns(std::int64_t headerLine) const {
    if (keywords_.empty()) diagnostics_.ReportNoColumns(headerLine, "no cell is read");
    for (std::size_t index = 0; index < columns_.size(); ++index)
      if (columns_[index] == nullptr &&
          !Matches(IgnoresCase(kRecordKindOf<Record>), kIgnore, keywords_[index]))
        diagnostics_.Report(DiagnosticCode::UnknownColumn, headerLine, keywords_[index], {}, {},
                            "no such column in a list of this kind; its cells are ignored");
  }

  void ReportLeftOut(std::int64_t line, std::string_view text, const std::string& reason) const {
    if (diagnostics_.IsWanted())
      diagnostics_.Report(DiagnosticCode::RowLeftOut, line, {}, text, {}, "row left out: " + reason);
  }

  void ReportLength(const FieldViews& row, std::int64_t line) const {
    if (columns_.empty() || row.total == columns_.size()) return;
    const std::string counts = Counted(row.total, "field") + " for " + Counted(columns_.size(), "column");
    if (row.total > columns_.size())
      diagnostics_.Report(DiagnosticCode::RowTooLong, line, {}, row.line, {},
                          counts + "; the surplus is ignored");
    // A last cell that is empty looks like no cell at all.
    const bool lastIsEmpty = row.droppedEmptyLast && row.total + 1 == columns_.size();
    if (row.total < columns_.size() && !lastIsEmpty)
      diagnostics_.Report(DiagnosticCode::RowTooShort, line, {}, row.line, {},
                          counts + "; the missing ones keep their defaults");
  }

  const std::vector<std::string>& keywords_;
  ResolvedColumns<Record> columns_;
  std::vector<Reader> readers_;  // of the columns
  std::vector<bool Record::*> flags_;
  const FileDiagnostics& diagnostics_;

  // Where numbers have a decimal comma: what the columns hold, and the cells of a row as numbers with a
  // point.
  std::vector<CellForm> forms_;
  std::vector<std::string> numbers_;
  std::vector<std::string_view> cells_;
};

/// The records that are built of a file's rows, which are those of a text or of a sheet.
template <class Record, class Rows>
class BuiltRecords final : public RecordSource {
 public:
  template <class Engine>
  BuiltRecords(Engine& engine, const FileDiagnostics& diagnostics)
      : records_(engine.StagedRecords.template Of<Record>()), rows_(engine, diagnostics) {
    const std::vector<std::string>& keywords = engine.Columns(kRecordKindOf<Record>);
    if (!rows_.ReadHeader(engine.HeaderFields, keywords)) return;
    if (std::exchange(engine.ReadHeaderOnly, false)) return;
    builder_.emplace(keywords, diagnostics, rows_.LineNumber(), Rows::kHasTexts && engine.ReadsDecimalComma);
    if (engine.Sample == nullptr) rows_.KeepAtMost(builder_->ColumnCount());
  }

  void* Next() override {
    while (builder_ && rows_.Next()) {
      Record& record = records_.Begin();
      if (builder_->Build(record, rows_.Row(), rows_.LineNumber())) return &record;
    }
    return nullptr;
  }

  bool NextRow(SourceRow& row) override {
    if (!builder_ || !rows_.Next()) return false;
    Record& record = records_.Begin();
    const bool isBuilt = builder_->Build(record, rows_.Row(), rows_.LineNumber());
    row = {rows_.LineNumber(), rows_.Row().fields, isBuilt ? &record : nullptr};
    return true;
  }

  void KeepAll() override {
    while (Next() != nullptr) records_.Keep();
  }

  std::int64_t LineNumber() const override { return rows_.LineNumber(); }
  bool HasFailed() const override { return rows_.HasFailed(); }

 private:
  RecordList<Record>& records_;
  Rows rows_;
  std::optional<RecordBuilder<Record>> builder_;  // none without rows to read
};

}  // namespace qv
