#include "engines/WrittenCells.h"

#include "text/Numbers.h"

namespace qv {
namespace {

bool IsSign(char c) { return c == '+' || c == '-'; }

bool StartsFormula(char c) { return c == '=' || c == '@' || c == '\t' || IsSign(c); }

}  // namespace

// Nothing inside a cell is escaped, so its own qualifier always ends it, and a bare cell ends at the
// delimiter.
bool WrittenCellChecks::BreaksRow(std::string_view value) const {
  if (delimiter_.empty()) return false;
  if (value.find_first_of("\r\n") != std::string_view::npos) return true;
  return value.find(qualifier_.empty() ? delimiter_ : qualifier_) != std::string_view::npos;
}

// A leading sign is a formula to a spreadsheet only when no plain number follows.
bool WrittenCellChecks::IsSignedNumber(std::string_view value) const {
  if (!IsSign(value.front())) return false;
  std::string number;
  if (hasDecimalComma_) AppendWithPoint(number, value, false);
  return ParseReal(hasDecimalComma_ ? number : value).fault == NumberFault::None;
}

void WrittenCellChecks::Check(std::int64_t line, std::string_view column, std::string_view value,
                              bool isWhole) const {
  if (!isWhole)
    diagnostics_.Report(DiagnosticCode::TextCut, line, column, value, value,
                        "the value does not fit the cell and was cut");
  if (BreaksRow(value))
    diagnostics_.Report(DiagnosticCode::DelimiterInValue, line, column, value, value,
                        QuotedBriefly(value) +
                            " holds a character that ends the cell; a reader will split the row differently");
  if (!value.empty() && StartsFormula(value.front()) && !IsSignedNumber(value))
    diagnostics_.Report(
        DiagnosticCode::FormulaLike, line, column, value, value,
        QuotedBriefly(value) + " would be run as a formula by a spreadsheet; written as it is");
}

void WrittenCellChecks::ReportUnknownColumn(std::int64_t line, std::string_view column) const {
  diagnostics_.Report(
      DiagnosticCode::UnknownColumn, line, column, {}, {},
      "no such column in a list of this kind; it has a header but no cells, so later cells move left");
}

}  // namespace qv
