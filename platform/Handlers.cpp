#include "platform/Handlers.h"

#include <utility>

namespace {

template <class Function>
struct Handler {
  Function function = nullptr;
  void* context = nullptr;
};

Handler<DiagnosticHandler> diagnosticHandler;
Handler<MessageBoxHandler> messageBoxHandler;
Handler<ProgressHandler> progressHandler;
thread_local const qv::ThreadHandlers::Set* ofThread = nullptr;  // instead of all three

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
    {DiagnosticCode::UnknownFormat, "unknown-format"},
    {DiagnosticCode::DoubledQuote, "doubled-quote"},
    {DiagnosticCode::Cancelled, "cancelled"},
};

}  // namespace

const char* DiagnosticCodeName(DiagnosticCode code) {
  for (const CodeName& row : kCodeNames) {
    if (row.code == code) return row.name;
  }
  return "unknown";
}

void SetDiagnosticHandler(DiagnosticHandler handler, void* context) {
  diagnosticHandler = {handler, context};
}

void SetProgressHandler(ProgressHandler handler, void* context) { progressHandler = {handler, context}; }

void SetMessageBoxHandler(MessageBoxHandler handler, void* context) {
  messageBoxHandler = {handler, context};
}

namespace qv {

ThreadHandlers::ThreadHandlers(DiagnosticHandler diagnostic, MessageBoxHandler messageBox,
                               ProgressHandler progress, void* context)
    : handlers_{diagnostic, messageBox, progress, context}, before_(std::exchange(ofThread, &handlers_)) {}

ThreadHandlers::~ThreadHandlers() { ofThread = before_; }

bool DiagnosticsWanted() { return ofThread != nullptr || diagnosticHandler.function != nullptr; }

void Report(const Diagnostic& diagnostic) {
  if (ofThread != nullptr)
    ofThread->diagnostic(diagnostic, ofThread->context);
  else if (diagnosticHandler.function != nullptr)
    diagnosticHandler.function(diagnostic, diagnosticHandler.context);
}

ProgressMeter::ProgressMeter(const std::string& file, FileProgress::Work work, FileProgress::Unit unit)
    : handler_(ofThread != nullptr ? ofThread->progress : progressHandler.function),
      context_(ofThread != nullptr ? ofThread->context : progressHandler.context),
      progress_{file.c_str(), work, unit, 0, 0} {}

void ProgressMeter::Expect(std::int64_t total) {
  progress_.done = 0;
  progress_.total = total;
}

bool ProgressMeter::Tell(std::int64_t amount) {
  progress_.done += amount;
  if (!isCancelled_) isCancelled_ = !handler_(progress_, context_);
  return !isCancelled_;
}

bool TellMessageHandler(const char* text) {
  if (ofThread != nullptr && ofThread->messageBox != nullptr) {
    ofThread->messageBox(text, ofThread->context);
    return true;
  }
  if (messageBoxHandler.function == nullptr) return false;
  messageBoxHandler.function(text, messageBoxHandler.context);
  return true;
}

void ShowMessage(const char* text) {
  if (!TellMessageHandler(text)) ShowPlatformMessage(text);
}

}  // namespace qv
