#include "engines/TextExport.h"

#include "engines/CAssemblyFile.h"
#include "engines/FileReport.h"
#include "engines/FormatNameLine.h"
#include "engines/SkippedColumns.h"
#include "engines/TextFileWriter.h"
#include "engines/WrittenCellRemarks.h"
#include "engines/columns/ColumnTables.h"
#include "engines/columns/ResolvedColumns.h"

#include <algorithm>
#include <vector>

namespace qv {
namespace {

/// What the engine puts around and after each cell, asked once instead of once a cell.
struct CellDress {
  explicit CellDress(const CAssemblyFile& engine) {
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

/// Name line and filler lines, so that the header row comes to stand on the start line.
void WritePreamble(const CAssemblyFile& engine, TextFileWriter& file) {
  if (engine.StartLine <= 1) return;
  file.Pending() += FormatNameLine(engine.FormatName);
  file.EndLine();
  for (int line = 2; line < engine.StartLine; ++line) file.EndLine();
}

template <class Record>
class RowWriter final : public RecordSink<Record> {
 public:
  RowWriter(const CAssemblyFile& engine, TextFileWriter& file, const FileReport& report)
      : keywords_(engine.Columns(KindTraits<Record>::kKind)),
        columns_(ResolveForWriting<Record>(keywords_)),
        dress_(engine),
        file_(file),
        remarks_(report, dress_.delimiter, dress_.after) {
    line_ = std::max(engine.StartLine, 1);
    ChooseCells();
  }

  // Every keyword gets its header, known or not, and every header a delimiter.
  void WriteHeader() {
    for (std::size_t rank = 0; rank < keywords_.size(); ++rank) {
      if (IsSkippedColumn(KindTraits<Record>::kKind, keywords_[rank])) continue;
      if (columns_[rank] == nullptr) remarks_.TellUnknownColumn(line_, keywords_[rank]);
      file_.Pending() += dress_.before + keywords_[rank] + dress_.after + dress_.delimiter;
    }
    EndLine();
  }

  bool Write(const Record& record) override {
    std::size_t rows = 1;
    for (const auto& count : counts_) rows = std::max(rows, count(record));
    for (std::size_t row = 0; row < rows; ++row) WriteRow(record, row);
    return file_.IsWhole();
  }

 private:
  /// A cell of a row, and what stands between it and the next.
  struct Cell {
    const Column<Record>* column;
    const std::string* keyword;
    std::string end;
  };

  // A keyword that the kind does not know writes no cell at all, so that later cells move left under its
  // header.
  void ChooseCells() {
    for (std::size_t rank = 0; rank < columns_.size(); ++rank) {
      if (columns_[rank] == nullptr || IsSkippedColumn(KindTraits<Record>::kKind, keywords_[rank])) continue;
      const bool isLast = rank + 1 == columns_.size();
      if (!cells_.empty()) cells_.back().end += dress_.before;
      cells_.push_back({columns_[rank], &keywords_[rank], dress_.after + (isLast ? "" : dress_.delimiter)});
      if (columns_[rank]->count != nullptr) counts_.push_back(columns_[rank]->count);
    }
  }

  void WriteRow(const Record& record, std::size_t row) {
    TextBuffer& out = file_.Pending();
    if (!cells_.empty()) out += dress_.before;
    for (const Cell& cell : cells_) {
      const std::size_t start = out.Size();
      const bool isEmpty = row != 0 && cell.column->count == nullptr;
      const bool isWhole = isEmpty || cell.column->write(record, row, out);
      if (remarks_.AreWanted()) TellOfCell(*cell.keyword, out.View().substr(start), isWhole);
      out += cell.end;
    }
    EndLine();
  }

  void TellOfCell(const std::string& keyword, std::string_view text, bool isWhole) {
    remarks_.Tell(line_, keyword, text, isWhole);
    line_ += std::count(text.begin(), text.end(), '\n');
  }

  void EndLine() {
    file_.EndLine();
    ++line_;
  }

  const std::vector<std::string>& keywords_;
  const ResolvedColumns<Record> columns_;
  const CellDress dress_;
  std::vector<Cell> cells_;
  std::vector<std::size_t (*)(const Record&)> counts_;
  TextFileWriter& file_;
  const WrittenCellRemarks remarks_;
  std::int64_t line_ = 1;
};

template <class Record>
bool HasColumns(const CAssemblyFile& engine) {
  return !engine.Columns(KindTraits<Record>::kKind).empty();
}

/// False when what feeds the records gave up.
template <class Record>
bool WriteKind(const CAssemblyFile& engine, TextFileWriter& file, const FileReport& report) {
  RowWriter<Record> writer(engine, file, report);
  writer.WriteHeader();
  return engine.StagedRecords.Of<Record>().WriteInto(writer);
}

bool WriteFirstKind(const CAssemblyFile& engine, TextFileWriter& file, const FileReport& report) {
  if (HasColumns<PartInformation>(engine)) return WriteKind<PartInformation>(engine, file, report);
  if (HasColumns<ToolInformation>(engine)) return WriteKind<ToolInformation>(engine, file, report);
  if (HasColumns<MaterialInfomation>(engine)) return WriteKind<MaterialInfomation>(engine, file, report);
  if (HasColumns<ShtInfo>(engine)) return WriteKind<ShtInfo>(engine, file, report);
  if (HasColumns<PrtInfo>(engine)) return WriteKind<PrtInfo>(engine, file, report);
  if (HasColumns<JobProgressInfo>(engine)) return WriteKind<JobProgressInfo>(engine, file, report);
  report.Tell(DiagnosticCode::NoColumns, 0, {}, {}, {},
              "the format has no columns; no header and no rows written");
  return engine.StagedRecords.DropFed();
}

}  // namespace

bool ExportRows(CAssemblyFile& engine, const char* path) {
  const FileReport report(path);
  TextFileWriter file(path, WorkingPlace::BesideTarget);
  if (file.IsOpen()) {
    WritePreamble(engine, file);
    if (!WriteFirstKind(engine, file, report)) return true;
  }
  if (!file.Commit())
    report.Tell(DiagnosticCode::FileNotWritten, 0, {}, {}, {}, "cannot be written: " + file.Reason());
  return true;
}

}  // namespace qv
