#pragma once

#include "engines/CAssemblyFile.h"
#include "engines/WrittenCells.h"
#include "engines/columns/ColumnTables.h"
#include "engines/columns/ResolvedColumns.h"

#include <cstring>
#include <string>
#include <vector>

/// Records as rows of texts, through the tables that describe every column.
namespace workbook {

using Texts = std::vector<std::string>;

/// What an export would write for the record's own columns.
template <class Record>
Texts RowOf(const Record& record, const Texts& keywords) {
  Texts row;
  for (const auto* column : qv::ResolveForWriting<Record>(keywords)) {
    qv::TextBuffer text;
    if (column != nullptr) column->write(record, 0, text);
    row.emplace_back(text.View());
  }
  return row;
}

template <class Record>
std::vector<Texts> RowsOf(const CAssemblyFile& engine, const Texts& keywords) {
  std::vector<Texts> rows;
  const RecordList<Record>& records = engine.StagedRecords.Of<Record>();
  for (std::size_t index = 0; index < records.Size(); ++index)
    rows.push_back(RowOf(*records[index], keywords));
  return rows;
}

/// Fills a record as an import of these cells would.
template <class Record>
void Fill(Record& record, const Texts& keywords, const Texts& cells) {
  const auto columns = qv::ResolveForReading<Record>(keywords);
  for (std::size_t index = 0; index < columns.size(); ++index)
    if (columns[index] != nullptr) columns[index]->read(record, cells[index], nullptr);
}

/// Adds a record that is filled with these cells.
template <class Record>
void Add(CAssemblyFile& engine, const Texts& keywords, const Texts& cells) {
  RecordList<Record>& records = engine.StagedRecords.Of<Record>();
  Fill(records.Begin(), keywords, cells);
  records.Keep();
}

/// Adds a part program with these tools and bends.
inline void AddProgram(CAssemblyFile& engine, const char* name, const Texts& tools, const Texts& bends = {}) {
  RecordList<PrtInfo>& records = engine.StagedRecords.Of<PrtInfo>();
  PrtInfo& program = records.Begin();
  program.SetPartName(name);
  std::vector<UsedToolInfo> usedTools(tools.size());
  for (std::size_t index = 0; index < tools.size(); ++index) {
    std::strcpy(usedTools[index].ToolType, tools[index].c_str());
    usedTools[index].ToolShape = static_cast<int>(index);
  }
  program.SetUsedToolInfo(usedTools);
  std::vector<BendInfo> bendList(bends.size());
  for (std::size_t index = 0; index < bends.size(); ++index)
    std::strcpy(bendList[index].BendAngle, bends[index].c_str());
  program.SetBendInfo(bendList);
  records.Keep();
}

/// The keywords of all columns that are read as well as written.
template <class Record>
Texts RoundTripKeywords() {
  Texts keywords;
  for (const auto& column : qv::ColumnTable<Record>::Columns()) {
    const Texts keyword = {std::string(column.keyword)};
    if (qv::ResolveForReading<Record>(keyword)[0] != nullptr &&
        qv::ResolveForWriting<Record>(keyword)[0] != nullptr && !qv::IsGroupColumn(column.keyword))
      keywords.push_back(keyword[0]);
  }
  return keywords;
}

}  // namespace workbook
