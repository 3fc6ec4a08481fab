#pragma once

#include "format/OptionForm.h"
#include "text/Numbers.h"

#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// The keyword of a column that is skipped. Its order lists positions, each followed by a comma.
inline constexpr std::string_view kIgnore = "Ignore";

/// The order of an item that is no column.
inline constexpr std::string_view kAbsent = "-1";

/// An XML tag cannot hold a slash, so the format file spells two keywords without it: the keyword of an item
/// as headers and engines spell it, and back.
std::string_view KeywordOf(std::string_view itemName);
std::string_view ItemNameOf(std::string_view keyword);

enum class ClaimState {
  Column,
  Taken,    ///< an earlier item has the position; this is no column
  Unended,  ///< of `Ignore`, without the comma that must follow: no column for an import or export
};

/// A position that an item claims for its column. The pointer and the views lead into the items.
struct ColumnClaim {
  const FormatItem* item;
  std::string_view keyword;
  std::string_view order;  ///< the text of the position
  int position;
  NumberFault fault;  ///< of that text
  ClaimState state;
  std::string_view holder;  ///< the keyword that has a position that is taken
};

/// The claims of all items, in the items' order and, within an item, in the order of its text.
std::vector<ColumnClaim> ClaimsOf(const std::vector<FormatItem>& items);

/// A column that a format gives to a file.
struct FormatColumn {
  int position;  ///< as the format numbers it; numbers may be missing between columns
  std::string keyword;
};

/// The columns as an import or export takes them, ascending by position.
std::vector<FormatColumn> ColumnsOf(const std::vector<ColumnClaim>& claims);
inline std::vector<FormatColumn> ColumnsOf(const OptionForm& form) { return ColumnsOf(ClaimsOf(form.Items)); }

}  // namespace qv
