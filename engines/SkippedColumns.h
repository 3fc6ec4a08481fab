#pragma once

#include "records/RecordKind.h"

#include <string_view>

namespace qv {

/// The two columns about a part's group, which every format lists and only part lists have.
inline bool IsGroupColumn(std::string_view keyword) {
  return keyword == "PartPositionInGroup" || keyword == "GroupName";
}

/// Whether a text export of the kind passes over the column, header and cells.
inline bool IsSkippedColumn(RecordKind kind, std::string_view keyword) {
  return kind != RecordKind::Parts && IsGroupColumn(keyword);
}

}  // namespace qv
