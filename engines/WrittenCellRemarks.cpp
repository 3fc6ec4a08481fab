#include "engines/WrittenCellRemarks.h"

#include "engines/columns/Numbers.h"

namespace qv {
namespace {

// A leading sign is a formula to a spreadsheet only when no plain number follows.
bool LooksLikeFormula(std::string_view value) {
  if (value.empty()) return false;
  const char first = value.front();
  if (first == '=' || first == '@' || first == '\t') return true;
  return (first == '+' || first == '-') && ParseReal(value).remark != Remark::None;
}

}  // namespace

// Nothing inside a cell is escaped, so its own qualifier always ends it, and a bare cell ends at the
// delimiter.
bool WrittenCellRemarks::BreaksRow(std::string_view value) const {
  if (delimiter_.empty()) return false;
  if (value.find_first_of("\r\n") != std::string_view::npos) return true;
  return value.find(qualifier_.empty() ? delimiter_ : qualifier_) != std::string_view::npos;
}

void WrittenCellRemarks::Tell(std::int64_t line, std::string_view column, std::string_view value,
                              bool isWhole) const {
  if (!isWhole)
    report_.Tell(DiagnosticCode::TextCut, line, column, value, value,
                 "the value does not fit the cell and was cut");
  if (BreaksRow(value))
    report_.Tell(
        DiagnosticCode::DelimiterInValue, line, column, value, value,
        Quoted(value) + " holds a character that ends the cell; a reader will split the row differently");
  if (LooksLikeFormula(value))
    report_.Tell(DiagnosticCode::FormulaLike, line, column, value, value,
                 Quoted(value) + " would be run as a formula by a spreadsheet; written as it is");
}

void WrittenCellRemarks::TellUnknownColumn(std::int64_t line, std::string_view column) const {
  report_.Tell(
      DiagnosticCode::UnknownColumn, line, column, {}, {},
      "no such column in a list of this kind; it has a header but no cells, so later cells move left");
}

}  // namespace qv
