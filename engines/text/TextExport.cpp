#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "engines/WrittenCells.h"
#include "engines/columns/ColumnTables.h"
#include "engines/columns/ResolvedColumns.h"
#include "engines/text/FormatNameLine.h"
#include "engines/text/TextFileWriter.h"

#include <algorithm>
#include <vector>

namespace qv {
namespace {

constexpr std::size_t kPrefetchDistance = 2;  // in records

// The texts of a large record begin some 256 bytes apart, each with a cache miss of its own.
template <class Record>
void Prefetch(const Record* record) {
  const char* const bytes = reinterpret_cast<const char*>(record);
  for (std::size_t at = 0; at < sizeof(Record); at += 256) __builtin_prefetch(bytes + at);
}

/// What the engine puts around and after each cell, asked once instead of once a cell.
struct CellQuoting {
  explicit CellQuoting(const CAssemblyFile& engine) {
    std::string around;
    engine.QualifyField(around);
    before = around.substr(0, around.size() / 2);
    after = around.substr(around.size() / 2);
    engine.AppendDelimiter(delimiter);
  }

  std::string before;
  std::string after;
  std::string delimiter;
};

/// A text file of records of one kind.
template <class Record>
class TextTarget final : public RecordTarget {
 public:
  TextTarget(CAssemblyFile& engine, const FileDiagnostics& diagnostics)
      : keywords_(engine.Columns(kRecordKindOf<Record>)),
        columns_(ResolveForWriting<Record>(keywords_)),
        staged_(engine.StagedRecords.Of<Record>()),
        quoting_(engine),
        file_(diagnostics, WorkingPlace::BesideTarget),
        hasDecimalComma_(engine.WritesDecimalComma),
        checks_(diagnostics, quoting_.delimiter, quoting_.after, hasDecimalComma_),
        line_(std::max(engine.StartLine, 1)) {
    if (file_.HasFailed()) return;
    WritePreamble(engine);
    ChooseCells();
    if (keywords_.empty())
      diagnostics.ReportNoColumns(0, "no header and no rows written");
    else
      WriteHeader();
  }

  bool Put(const void* record) override { return PutRecord(*static_cast<const Record*>(record)); }

  void PutStaged() override {
    const std::size_t size = staged_.Size();
    for (std::size_t index = 0; index < size; ++index) {
      if (index + kPrefetchDistance < size) Prefetch(staged_[index + kPrefetchDistance]);
      if (!PutRecord(*staged_[index])) return;
    }
  }

  bool Finish() override { return file_.Finish(); }
  bool Commit() override { return file_.Commit(); }
  bool HasFailed() const override { return file_.HasFailed(); }

 private:
  /// A cell of a row, and what separates it from the next.
  struct Cell {
    const Column<Record>* column;
    const std::string* keyword;
    std::string end;
  };

  /// Name line and filler lines, so that the header row is on the start line.
  void WritePreamble(const CAssemblyFile& engine) {
    if (engine.StartLine <= 1) return;
    file_.Pending() += FormatNameLine(engine.FormatName);
    file_.EndLine();
    for (int line = 2; line < engine.StartLine; ++line) file_.EndLine();
  }

  // A keyword that the kind does not know writes no cell at all, so that later cells move left under its
  // header.
  void ChooseCells() {
    for (std::size_t index = 0; index < columns_.size(); ++index) {
      if (columns_[index] == nullptr || IsSkipped(keywords_[index])) continue;
      const bool isLast = index + 1 == columns_.size();
      if (!cells_.empty()) cells_.back().end += quoting_.before;
      cells_.push_back(
          {columns_[index], &keywords_[index], quoting_.after + (isLast ? "" : quoting_.delimiter)});
      if (columns_[index]->count != nullptr) counts_.push_back(columns_[index]->count);
    }
  }

  /// Only part lists have the columns about a part's group.
  static bool IsSkipped(std::string_view keyword) {
    return kRecordKindOf<Record> != RecordKind::Parts && IsGroupColumn(keyword);
  }

  // Every keyword gets its header, known or not, and every header a delimiter.
  void WriteHeader() {
    for (std::size_t index = 0; index < keywords_.size(); ++index) {
      if (IsSkipped(keywords_[index])) continue;
      if (columns_[index] == nullptr) checks_.ReportUnknownColumn(line_, keywords_[index]);
      file_.Pending() += quoting_.before + keywords_[index] + quoting_.after + quoting_.delimiter;
    }
    EndLine();
  }

  bool PutRecord(const Record& record) {
    if (keywords_.empty()) return !file_.HasFailed();
    std::size_t rows = 1;
    for (const auto& count : counts_) rows = std::max(rows, count(record));
    for (std::size_t row = 0; row < rows; ++row)
      hasDecimalComma_ ? WriteRow<true>(record, row) : WriteRow<false>(record, row);
    return !file_.HasFailed();
  }

  // Two of them in one function would not fit the registers.
  template <bool HasDecimalComma>
  [[gnu::noinline]] void WriteRow(const Record& record, std::size_t row) {
    TextBuffer& out = file_.Pending();
    if (!cells_.empty()) out += quoting_.before;
    for (const Cell& cell : cells_) {
      const std::size_t start = out.Size();
      const bool isEmpty = row != 0 && cell.column->count == nullptr;
      const bool isWhole = isEmpty || cell.column->write(record, row, out);
      if (HasDecimalComma && cell.column->writtenAs == CellForm::Real) out.PutComma(start);
      if (checks_.AreWanted()) Check(*cell.keyword, out.View().substr(start), isWhole);
      out += cell.end;
    }
    EndLine();
  }

  void Check(const std::string& keyword, std::string_view text, bool isWhole) {
    checks_.Check(line_, keyword, text, isWhole);
    line_ += std::count(text.begin(), text.end(), '\n');
  }

  void EndLine() {
    file_.EndLine();
    ++line_;
  }

  const std::vector<std::string>& keywords_;
  const ResolvedColumns<Record> columns_;
  const RecordList<Record>& staged_;
  const CellQuoting quoting_;
  std::vector<Cell> cells_;
  std::vector<std::size_t (*)(const Record&)> counts_;
  TextFileWriter file_;
  const bool hasDecimalComma_;
  const WrittenCellChecks checks_;
  std::int64_t line_;
};

}  // namespace

std::unique_ptr<RecordTarget> BeginTextRecords(CAssemblyFile& engine, RecordKind kind,
                                               const FileDiagnostics& diagnostics) {
  return MakeForKind<RecordTarget, TextTarget, IsExported>(kind, engine, diagnostics);
}

}  // namespace qv
