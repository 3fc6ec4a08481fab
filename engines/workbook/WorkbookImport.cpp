#include "engines/workbook/WorkbookImport.h"

#include "engines/CAssemblyFile.h"
#include "engines/FieldTrim.h"
#include "engines/RecordBuilder.h"
#include "engines/workbook/WorkbookReading.h"

#include <algorithm>

namespace qv {
namespace {

/// Below 1 there is no header row: all rows are data.
std::int32_t HeaderRow(const CAssemblyFile& engine) { return std::max(engine.StartLine, 0); }

/// Keeps a header as the text engines keep a field of theirs.
void AppendHeader(TextList& headers, std::string_view text) {
  text = TrimField(text);
  if (text != "\"") headers.Append(text);
}

/// Without a header row the format's keywords stand in for it.
void ReadHeaders(CAssemblyFile& engine, const std::vector<std::string>& keywords, OpenedSheet& sheet) {
  sheet.row = HeaderRow(engine);
  for (std::int32_t column = 1; column <= sheet.columns; ++column) {
    const auto rank = static_cast<std::size_t>(column - 1);
    if (sheet.row != 0)
      AppendHeader(engine.HeaderFields, sheet.cells.ReadCell(HeaderRow(engine), column));
    else if (rank < keywords.size())
      AppendHeader(engine.HeaderFields, keywords[rank]);
  }
}

/// The cells of one row, as the builders take them.
class SheetRow {
 public:
  SheetRow(std::int32_t columns, std::size_t keep) : texts_(static_cast<std::size_t>(columns)), keep_(keep) {}

  const FieldViews& Read(Worksheet& cells, std::int32_t row) {
    for (std::size_t rank = 0; rank < texts_.size(); ++rank)
      texts_[rank] = cells.ReadCell(row, static_cast<std::int32_t>(rank + 1));
    views_.Show(texts_, keep_);
    views_.total = CountFields(views_.fields.size());
    return views_;
  }

  /// For remarks on the row as a whole.
  std::string Text() const {
    std::string text;
    for (const std::string& cell : texts_) text.append(&cell == &texts_.front() ? "" : "\t").append(cell);
    return text;
  }

 private:
  /// A row is as wide as the sheet, but only what is filled in can be too much.
  std::size_t CountFields(std::size_t kept) const {
    std::size_t count = texts_.size();
    while (count > std::max<std::size_t>(kept, 1) && texts_[count - 1].empty()) --count;
    return count;
  }

  std::vector<std::string> texts_;
  std::size_t keep_;
  FieldViews views_;
};

template <class Record>
void ReadRows(CAssemblyFile& engine, OpenedSheet& sheet, const FileReport& report) {
  const std::int32_t headerRow = HeaderRow(engine);
  if (headerRow > sheet.rows) return report.TellNoHeaderRow(sheet.rows, headerRow);
  const RecordBuilder<Record> builder(engine.Columns(KindTraits<Record>::kKind), report, headerRow);
  RecordList<Record>& records = engine.StagedRecords.Of<Record>();
  SheetRow cells(sheet.columns, builder.ColumnCount());
  for (sheet.row = headerRow + std::int64_t{1}; sheet.row <= sheet.rows; ++sheet.row) {
    const FieldViews& fields = cells.Read(sheet.cells, static_cast<std::int32_t>(sheet.row));
    const std::string text = report.IsWanted() ? cells.Text() : std::string();
    if (builder.Build(records.Begin(), fields, sheet.row, text) && !records.Keep()) break;
  }
}

}  // namespace

template <class Record>
bool ImportWorkbook(CAssemblyFile& engine, const char* path) {
  const FileReport report(path);
  engine.HeaderFields.Clear();
  ReadWorkbook(path, report, [&](OpenedSheet& sheet) {
    ReadHeaders(engine, engine.Columns(KindTraits<Record>::kKind), sheet);
    if (!engine.ReadHeaderOnly) ReadRows<Record>(engine, sheet, report);
    engine.ReadHeaderOnly = false;
  });
  return true;
}

template bool ImportWorkbook<PartInformation>(CAssemblyFile&, const char*);
template bool ImportWorkbook<ToolInformation>(CAssemblyFile&, const char*);
template bool ImportWorkbook<MaterialInfomation>(CAssemblyFile&, const char*);
template bool ImportWorkbook<ShtInfo>(CAssemblyFile&, const char*);
template bool ImportWorkbook<PrtInfo>(CAssemblyFile&, const char*);

}  // namespace qv
