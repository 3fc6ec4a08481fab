#include <QVAssemblyFile/Diagnostics.h>

namespace {

DiagnosticHandler currentHandler = nullptr;
void* currentContext = nullptr;

struct CodeName {
  DiagnosticCode code;
  const char* name;
};

constexpr CodeName kCodeNames[] = {
    {DiagnosticCode::FileNotOpened, "file-not-opened"},
    {DiagnosticCode::FileNotWritten, "file-not-written"},
    {DiagnosticCode::ConfigurationInvalid, "configuration-invalid"},
    {DiagnosticCode::ConfigurationMissing, "configuration-missing"},
    {DiagnosticCode::UnsupportedFileType, "unsupported-file-type"},
    {DiagnosticCode::NoSpreadsheet, "no-spreadsheet"},
    {DiagnosticCode::SpreadsheetFailed, "spreadsheet-failed"},
    {DiagnosticCode::UnknownColumn, "unknown-column"},
    {DiagnosticCode::PositionTaken, "position-taken"},
    {DiagnosticCode::InvalidPosition, "invalid-position"},
    {DiagnosticCode::RowLeftOut, "row-left-out"},
    {DiagnosticCode::RowTooShort, "row-too-short"},
    {DiagnosticCode::NoHeaderRow, "no-header-row"},
    {DiagnosticCode::NoColumns, "no-columns"},
    {DiagnosticCode::RowTooLong, "row-too-long"},
    {DiagnosticCode::NotANumber, "not-a-number"},
    {DiagnosticCode::TrailingText, "trailing-text"},
    {DiagnosticCode::NumberOutOfRange, "number-out-of-range"},
    {DiagnosticCode::EmptyValue, "empty-value"},
    {DiagnosticCode::UnknownWord, "unknown-word"},
    {DiagnosticCode::TextCut, "text-cut"},
    {DiagnosticCode::OpenQualifier, "open-qualifier"},
    {DiagnosticCode::StrayQuote, "stray-quote"},
    {DiagnosticCode::ByteOrderMark, "byte-order-mark"},
    {DiagnosticCode::NulByte, "nul-byte"},
    {DiagnosticCode::FormulaLike, "formula-like"},
    {DiagnosticCode::DelimiterInValue, "delimiter-in-value"},
    {DiagnosticCode::CarriageReturn, "carriage-return"},
    {DiagnosticCode::EndOfText, "end-of-text"},
};

}  // namespace

const char* DiagnosticCodeName(DiagnosticCode code) {
  for (const CodeName& row : kCodeNames) {
    if (row.code == code) return row.name;
  }
  return "unknown";
}

void SetDiagnosticHandler(DiagnosticHandler handler, void* context) {
  currentHandler = handler;
  currentContext = context;
}

namespace qv {

bool DiagnosticsWanted() { return currentHandler != nullptr; }

void Report(const Diagnostic& diagnostic) {
  if (currentHandler != nullptr) currentHandler(diagnostic, currentContext);
}

}  // namespace qv
