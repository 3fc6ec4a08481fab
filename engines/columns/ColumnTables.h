#pragma once

#include "engines/columns/Column.h"
#include "records/Records.h"

#include <span>

/// The one table per kind of record: every field with the columns that carry it.
namespace qv {

/// What a kind's table gives.
template <class Record>
struct TableOf {
  std::span<const RecordField> fields;
  std::span<const Column<Record>> columns;
};

template <class Record>
struct ColumnTable {
  /// Every field, in the order in which the record declares them.
  static std::span<const RecordField> Fields() { return Table().fields; }

  /// Every column; a keyword is there once at most in each direction.
  static std::span<const Column<Record>> Columns() { return Table().columns; }

 private:
  static TableOf<Record> Table();  // of each kind, in the source of its table
};

template <>
TableOf<PartInformation> ColumnTable<PartInformation>::Table();
template <>
TableOf<ToolInformation> ColumnTable<ToolInformation>::Table();
template <>
TableOf<MaterialInfomation> ColumnTable<MaterialInfomation>::Table();
template <>
TableOf<ShtInfo> ColumnTable<ShtInfo>::Table();
template <>
TableOf<PrtInfo> ColumnTable<PrtInfo>::Table();
template <>
TableOf<MatAmncITInfo> ColumnTable<MatAmncITInfo>::Table();
template <>
TableOf<MatLibraryInfo> ColumnTable<MatLibraryInfo>::Table();
template <>
TableOf<JobProgressInfo> ColumnTable<JobProgressInfo>::Table();

}  // namespace qv
