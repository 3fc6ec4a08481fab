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

/// The one table per kind of record: every column it can have, in the order in which keywords are looked up.
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

template <>
struct ColumnTable<PartInformation> {
  static std::span<const Column<PartInformation>> Columns();
};
template <>
struct ColumnTable<ToolInformation> {
  static std::span<const Column<ToolInformation>> Columns();
};
template <>
struct ColumnTable<MaterialInfomation> {
  static std::span<const Column<MaterialInfomation>> Columns();
};
template <>
struct ColumnTable<ShtInfo> {
  static std::span<const Column<ShtInfo>> Columns();
};
template <>
struct ColumnTable<PrtInfo> {
  static std::span<const Column<PrtInfo>> Columns();
};
template <>
struct ColumnTable<MatAmncITInfo> {
  static std::span<const Column<MatAmncITInfo>> Columns();
};
template <>
struct ColumnTable<MatLibraryInfo> {
  static std::span<const Column<MatLibraryInfo>> Columns();
};
template <>
struct ColumnTable<JobProgressInfo> {
  static std::span<const Column<JobProgressInfo>> Columns();
};

}  // namespace qv
