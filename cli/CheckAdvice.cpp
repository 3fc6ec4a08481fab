#include "cli/CheckAdvice.h"

#include <QVAssemblyFile/Diagnostics.h>

namespace qv {
namespace {

struct Advice {
  DiagnosticCode code;
  std::string_view toDo;
};

constexpr Advice kAdvice[] = {
    {DiagnosticCode::ConfigurationInvalid, "look over the format file, or name another one with --config"},
    {DiagnosticCode::UnknownColumn,
     "correct the keyword in the format, or let Ignore take the column's place"},
    {DiagnosticCode::PositionTaken, "give each column of the format a position of its own"},
    {DiagnosticCode::InvalidPosition, "give the column's position as a whole number, counted from 0"},
    {DiagnosticCode::RowLeftOut, "fill in the cell that a record cannot be without, or delete the row"},
    {DiagnosticCode::RowTooShort,
     "add the missing cells, or compare the format's columns with the header row"},
    {DiagnosticCode::NoHeaderRow, "give the format the line that holds the headers, counted from 1"},
    {DiagnosticCode::NoColumns, "give the format columns, or choose another one with --format"},
    {DiagnosticCode::RowTooLong,
     "put texts that hold a delimiter between qualifiers, or let Ignore stand for the surplus columns"},
    {DiagnosticCode::NotANumber, "write a number there, with a point as the decimal sign"},
    {DiagnosticCode::TrailingText,
     "leave nothing but the number in the cell: no unit, no comma, no digit grouping"},
    {DiagnosticCode::NumberOutOfRange, "write a number that fits the column"},
    {DiagnosticCode::EmptyValue, "write the value that is meant, as an empty cell is not the default"},
    {DiagnosticCode::UnknownWord, "write one of the words that the column knows, letter by letter"},
    {DiagnosticCode::TextCut, "shorten the text"},
    {DiagnosticCode::OpenQualifier,
     "close the qualifier, or take it away; a text cannot go on in the next line"},
    {DiagnosticCode::StrayQuote,
     "put the text between qualifiers, or write the double quote in another way, such as in"},
    {DiagnosticCode::ByteOrderMark, "save the file without a byte-order mark"},
    {DiagnosticCode::CarriageReturn, "save the file with LF or CR LF at the end of each line"},
    {DiagnosticCode::EndOfText, "take the byte 1A (hex) out of the file, or end the file there"},
    {DiagnosticCode::NulByte, "save the file anew as text, in the system's code page or as UTF-8"},
};

}  // namespace

std::string_view AdviceFor(std::string_view code) {
  for (const Advice& advice : kAdvice)
    if (code == DiagnosticCodeName(advice.code)) return advice.toDo;
  return {};
}

}  // namespace qv
