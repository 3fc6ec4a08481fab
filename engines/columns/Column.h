#pragma once

#include "engines/FileDiagnostics.h"
#include "engines/columns/RecordFields.h"
#include "engines/columns/TextBuffer.h"
#include "text/Ascii.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qv {

/// Whether a column belongs to the record itself or to one of a part program's lists.
enum class ColumnLevel : unsigned char { Record, UsedTools, Holes, Bends };

/// One column of a kind of record, and what reading and writing a cell of it means. The keyword of a column
/// that is only read may differ from that of the column that is only written.
template <class Record>
struct Column : FieldColumn {
  /// Puts the cell's text into the record. When `stored` is given, it receives what was stored if that
  /// differs from the text. Null: the column is not read.
  CellRemark (*read)(Record& record, std::string_view text, std::string* stored) = nullptr;

  /// Appends the cell's text. `element` counts the elements of the column's list; 0 for the record itself.
  /// Returns false when the value had to be cut. Null: the column is not written.
  bool (*write)(const Record& record, std::size_t element, TextBuffer& out) = nullptr;

  /// Raised in every record of a file that has the column; may be null.
  bool Record::*flag = nullptr;

  ColumnLevel level = ColumnLevel::Record;

  /// The length of the column's list; null for the record itself.
  std::size_t (*count)(const Record& record) = nullptr;
};

/// Whether an import of the kind compares a format's keywords with its table's ignoring case: files that
/// other software writes rely on either. Exports always do.
constexpr bool IgnoresCase(RecordKind kind) {
  return kind == RecordKind::Tools || kind == RecordKind::Materials || kind == RecordKind::MaterialLibrary;
}

inline bool Matches(bool ignoresCase, std::string_view keyword, std::string_view text) {
  return ignoresCase ? EqualsIgnoringCase(keyword, text) : keyword == text;
}

}  // namespace qv
