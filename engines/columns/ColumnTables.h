#pragma once

#include "engines/columns/Column.h"

#include <QVAssemblyFile/JobProgressInfo.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/MaterialInfomation.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/PrtInfo.h>
#include <QVAssemblyFile/ShtInfo.h>
#include <QVAssemblyFile/ToolInformation.h>

#include <span>

/// The one table per kind of record: every field with the columns that carry it.
namespace qv {

// Keywords of parts, sheets, part programs and inventories are matched exactly, those of tools, materials and
// the library ignoring case: files that other software writes rely on either.
template <>
struct KindTraits<PartInformation> : KindTraitsOf<RecordKind::Parts, KeywordMatch::Exact, true> {};
template <>
struct KindTraits<ToolInformation> : KindTraitsOf<RecordKind::Tools, KeywordMatch::IgnoringCase> {};
template <>
struct KindTraits<MaterialInfomation> : KindTraitsOf<RecordKind::Materials, KeywordMatch::IgnoringCase> {};
template <>
struct KindTraits<ShtInfo> : KindTraitsOf<RecordKind::Sheets, KeywordMatch::Exact> {};
template <>
struct KindTraits<PrtInfo> : KindTraitsOf<RecordKind::PartPrograms, KeywordMatch::Exact> {};
template <>
struct KindTraits<MatAmncITInfo> : KindTraitsOf<RecordKind::MaterialInventory, KeywordMatch::Exact> {};
template <>
struct KindTraits<MatLibraryInfo> : KindTraitsOf<RecordKind::MaterialLibrary, KeywordMatch::IgnoringCase> {};
template <>
struct KindTraits<JobProgressInfo> : KindTraitsOf<RecordKind::JobProgress, KeywordMatch::Exact> {};

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
