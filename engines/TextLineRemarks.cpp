#include "engines/TextLineRemarks.h"

namespace qv {
namespace {

bool StartsWithByteOrderMark(std::string_view line) {
  return line.starts_with("\xEF\xBB\xBF") || line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF");
}

}  // namespace

void TextLineRemarks::TellStart(std::string_view line, std::int64_t number) const {
  if (number == 1 && report_.IsWanted() && StartsWithByteOrderMark(line))
    report_.Tell(DiagnosticCode::ByteOrderMark, number, {}, line.substr(0, 3), {},
                 "the file starts with a byte-order mark; it is kept as part of the line");
}

void TextLineRemarks::TellOf(std::int64_t number, const FieldViews& row) const {
  const std::string_view line = row.line;
  TellStart(line, number);
  if (line.find('\0') != std::string_view::npos)
    report_.Tell(DiagnosticCode::NulByte, number, {}, line, {},
                 "the line holds NUL bytes; a text ends at the first");
  else if (line.find('\r') != std::string_view::npos)
    report_.Tell(DiagnosticCode::CarriageReturn, number, {}, line, {},
                 "the line holds a carriage return, which ends no line; it is kept as a character");
  if (row.openQualifier)
    report_.Tell(DiagnosticCode::OpenQualifier, number, {}, line, {},
                 "a text qualifier is still open at the end of the line; it took the delimiters after it");
  if (row.droppedQuote)
    report_.Tell(DiagnosticCode::StrayQuote, number, {}, line, {},
                 "a field that is nothing but a double quote is dropped; the cells behind it move up");
  if (!row.oddQuote.empty())
    report_.Tell(DiagnosticCode::StrayQuote, number, {}, row.oddQuote, {},
                 Quoted(row.oddQuote) + " loses its double quote, which has no partner there");
}

}  // namespace qv
