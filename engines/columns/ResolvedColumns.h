#pragma once

#include "engines/columns/Column.h"
#include "records/RecordStorage.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// A format's column list with each keyword looked up once; null where the kind does not know it.
template <class Record>
using ResolvedColumns = std::vector<const Column<Record>*>;

/// Whether a column can be used in the direction in question.
template <class Record>
using ColumnFilter = bool (*)(const Column<Record>& column);

template <class Record>
ResolvedColumns<Record> Resolve(const std::vector<std::string>& keywords, bool ignoresCase,
                                ColumnFilter<Record> isUsable) {
  const auto table = ColumnTable<Record>::Columns();
  ResolvedColumns<Record> resolved;
  for (const std::string& keyword : keywords) {
    const auto found = std::find_if(table.begin(), table.end(), [&](const Column<Record>& column) {
      return isUsable(column) && Matches(ignoresCase, column.keyword, keyword);
    });
    resolved.push_back(found == table.end() ? nullptr : &*found);
  }
  return resolved;
}

/// The columns for reading: those without a reader count as unknown.
template <class Record>
ResolvedColumns<Record> ResolveForReading(const std::vector<std::string>& keywords) {
  return Resolve<Record>(keywords, IgnoresCase(kRecordKindOf<Record>),
                         [](const Column<Record>& column) { return column.read != nullptr; });
}

/// The columns for writing: those without a writer count as unknown.
template <class Record>
ResolvedColumns<Record> ResolveForWriting(const std::vector<std::string>& keywords) {
  return Resolve<Record>(keywords, true,
                         [](const Column<Record>& column) { return column.write != nullptr; });
}

}  // namespace qv
