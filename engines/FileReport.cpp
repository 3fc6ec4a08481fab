#include "engines/FileReport.h"

#include <array>

namespace qv {
namespace {

struct CellRemark {
  Remark remark;
  DiagnosticCode code;
  const char* what;
};

constexpr std::array kCellRemarks = {
    CellRemark{Remark::NotANumber, DiagnosticCode::NotANumber, "is not a number"},
    CellRemark{Remark::TrailingText, DiagnosticCode::TrailingText, "has text after the number"},
    CellRemark{Remark::NumberOutOfRange, DiagnosticCode::NumberOutOfRange,
               "is a number that the field cannot hold"},
    CellRemark{Remark::EmptyValue, DiagnosticCode::EmptyValue, "the cell is empty"},
    CellRemark{Remark::UnknownWord, DiagnosticCode::UnknownWord, "is none of the words for this column"},
    CellRemark{Remark::TextCut, DiagnosticCode::TextCut, "is longer than the field"},
};

constexpr std::size_t kLongestQuote = 60;

// Not inside a character of UTF-8, which has at most three bytes like 10xxxxxx behind its first.
std::size_t QuoteEnd(std::string_view text) {
  if (text.size() <= kLongestQuote) return text.size();
  std::size_t end = kLongestQuote;
  while (end > kLongestQuote - 3 && (text[end] & 0xC0) == 0x80) --end;
  return end;
}

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  quoted += text.substr(0, QuoteEnd(text));
  if (text.size() > kLongestQuote) quoted += "...";
  quoted += '"';
  return quoted;
}

std::string Counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void FileReport::Tell(DiagnosticCode code, std::int64_t line, std::string_view column, std::string_view text,
                      std::string_view stored, std::string message) const {
  if (!wanted_) return;
  Report(
      {file_, line, std::string(column), code, std::string(text), std::string(stored), std::move(message)});
}

void FileReport::TellCell(Remark remark, std::int64_t line, std::string_view column, std::string_view text,
                          std::string_view stored) const {
  for (const CellRemark& entry : kCellRemarks) {
    if (entry.remark != remark) continue;
    std::string message = text.empty() ? std::string() : Quoted(text) + " ";
    message += entry.what;
    message += "; stored as " + Quoted(stored);
    Tell(entry.code, line, column, text, stored, std::move(message));
  }
}

void FileReport::TellNoHeaderRow(std::int64_t lines, int headerRow) const {
  Tell(DiagnosticCode::NoHeaderRow, lines, {}, {}, {},
       "the list ends before line " + std::to_string(headerRow) +
           ", which is to be the header row; nothing is read");
}

}  // namespace qv
