#include "engines/TextImport.h"

#include "engines/CTxtAssembly.h"
#include "engines/LineReader.h"
#include "engines/RecordBuilder.h"
#include "engines/TextLineRemarks.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace qv {
namespace {

/// Splits lines as the engine does: without copies where the engine uses the rules of this library, through
/// its virtual operation where it has rules of its own.
class RowSplitter {
 public:
  explicit RowSplitter(CTxtAssembly& engine) : engine_(engine), splitter_(engine.ViewSplitter()) {}

  void KeepAtMost(std::size_t fields) {
    if (splitter_) splitter_->KeepAtMost(fields);
  }

  const FieldViews& Split(std::string_view line) {
    if (splitter_) {
      splitter_->Split(line, row_);
      return row_;
    }
    texts_.clear();
    engine_.SplitLine(std::string(line), texts_);
    row_.fields.assign(texts_.begin(), texts_.end());
    row_.total = texts_.size();
    return row_;
  }

 private:
  CTxtAssembly& engine_;
  std::optional<FieldSplitter> splitter_;
  FieldViews row_;
  std::vector<std::string> texts_;
};

/// Takes the next line as the header row; false when there is none.
bool ReadHeader(CTxtAssembly& engine, LineReader& lines, RowSplitter& splitter, TextLineRemarks& remarks) {
  std::string_view line;
  if (!lines.Next(line)) return false;
  const FieldViews& header = splitter.Split(line);
  remarks.Tell(line, lines.LineNumber(), header);
  for (const std::string_view field : header.fields) engine.HeaderFields.Append(field);
  return true;
}

template <class Record>
void ReadRows(CTxtAssembly& engine, LineReader& lines, RowSplitter& splitter, const FileReport& report,
              TextLineRemarks& remarks) {
  const RecordBuilder<Record> builder(engine.Columns(KindTraits<Record>::kKind), report, lines.LineNumber());
  splitter.KeepAtMost(builder.ColumnCount());
  RecordList<Record>& records = engine.StagedRecords.Of<Record>();
  std::string_view line;
  while (lines.Next(line)) {
    const FieldViews& row = splitter.Split(line);
    remarks.Tell(line, lines.LineNumber(), row);
    if (builder.Build(records.Begin(), row, lines.LineNumber(), line)) records.Keep();
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
  RowSplitter splitter(engine);
  TextLineRemarks remarks(report);
  std::string_view skipped;
  for (int number = 1; number < engine.StartLine && lines.Next(skipped); ++number)
    remarks.TellStart(skipped, number);
  if (ReadHeader(engine, lines, splitter, remarks)) {
    if (!engine.ReadHeaderOnly) ReadRows<Record>(engine, lines, splitter, report, remarks);
    engine.ReadHeaderOnly = false;
  }
  if (lines.HasFailed())
    report.Tell(DiagnosticCode::FileNotOpened, lines.LineNumber(), {}, {}, {},
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
