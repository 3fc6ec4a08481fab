#include "engines/FileDiagnostics.h"

namespace qv {
namespace {

struct CellSentence {
  CellRemark remark;
  DiagnosticCode code;
  const char* what;
};

constexpr CellSentence kCellSentences[] = {
    {CellRemark::NotANumber, DiagnosticCode::NotANumber, "is not a number"},
    {CellRemark::TrailingText, DiagnosticCode::TrailingText, "has text after the number"},
    {CellRemark::NumberOutOfRange, DiagnosticCode::NumberOutOfRange,
     "is a number that the field cannot hold"},
    {CellRemark::EmptyValue, DiagnosticCode::EmptyValue, "the cell is empty"},
    {CellRemark::UnknownWord, DiagnosticCode::UnknownWord, "is none of the words for this column"},
    {CellRemark::TextCut, DiagnosticCode::TextCut, "is longer than the field"},
};

}  // namespace

void FileDiagnostics::Report(DiagnosticCode code, std::int64_t line, std::string_view column,
                             std::string_view text, std::string_view stored, std::string message) const {
  if (!wanted_) return;
  qv::Report(
      {file_, line, std::string(column), code, std::string(text), std::string(stored), std::move(message)});
}

void FileDiagnostics::ReportCell(CellRemark remark, std::int64_t line, std::string_view column,
                                 std::string_view text, std::string_view stored) const {
  for (const CellSentence& entry : kCellSentences) {
    if (entry.remark != remark) continue;
    std::string message = text.empty() ? std::string() : QuotedBriefly(text) + " ";
    message += entry.what;
    message += "; stored as " + QuotedBriefly(stored);
    Report(entry.code, line, column, text, stored, std::move(message));
  }
}

void FileDiagnostics::ReportNoHeaderRow(std::int64_t last, int headerRow) const {
  Report(DiagnosticCode::NoHeaderRow, last,
         "the list ends before line " + std::to_string(headerRow) +
             ", which is to be the header row; nothing is read");
}

void FileDiagnostics::ReportUnknownFormat(std::string_view name, const std::string& choice) {
  formatIsUnknown_ = true;
  Report(DiagnosticCode::UnknownFormat, 0, {}, name, {},
         "there is no format " + QuotedBriefly(name) + "; " + choice);
}

void FileDiagnostics::ReportNoColumns(std::int64_t line, const std::string& what) const {
  if (!formatIsUnknown_) Report(DiagnosticCode::NoColumns, line, "the format has no columns; " + what);
}

}  // namespace qv
