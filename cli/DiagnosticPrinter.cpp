#include "cli/DiagnosticPrinter.h"

#include "cli/JsonWriter.h"
#include "cli/StandardStreams.h"
#include "cli/terminal/DisplayText.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/Interruption.h"
#include "text/Phrases.h"

#include <QVAssemblyFile/MessageBox.h>

#include <algorithm>
#include <array>
#include <ostream>

namespace qv {
namespace {

// What says that a file was not read or written, rather than how it was.
constexpr std::array kFailures = {DiagnosticCode::FileNotOpened,       DiagnosticCode::FileNotWritten,
                                  DiagnosticCode::UnsupportedFileType, DiagnosticCode::NoSpreadsheet,
                                  DiagnosticCode::SpreadsheetFailed,   DiagnosticCode::Cancelled};

constexpr std::int64_t kMaxOfKind = 10;

bool IsFailure(DiagnosticCode code) { return std::ranges::find(kFailures, code) != kFailures.end(); }

std::string AsJson(const Utf8Diagnostic& diagnostic) {
  return JsonLine([&](JsonWriter& json) {
    json.BeginObject();
    json.Member("file", ShownPath(diagnostic.file));
    json.Member("line", diagnostic.line);
    json.Member("column", diagnostic.column);
    json.Member("code", diagnostic.code);
    json.Member("text", diagnostic.text);
    json.Member("message", diagnostic.message);
    json.EndObject();
  });
}

std::string AsText(const Utf8Diagnostic& diagnostic, bool isColoured) {
  std::string where = Harmless(ShownPath(diagnostic.file));
  if (diagnostic.line > 0) where += ":" + std::to_string(diagnostic.line);
  std::string line = where.empty() ? "qvassembly: " : Bold(where + ":", isColoured) + " ";
  if (!diagnostic.column.empty()) line += Harmless(diagnostic.column) + ": ";
  return line + Harmless(diagnostic.message) + "\n";
}

// The library cuts a long cell between characters of UTF-8, so one of another encoding is cut anew.
std::string DecodedMessage(const Diagnostic& diagnostic, const TextCoding& coding) {
  std::string message;
  std::string_view rest = diagnostic.message;
  for (const std::string* const cell : {&diagnostic.text, &diagnostic.stored}) {
    const std::string quoted = QuotedBriefly(*cell);
    const std::size_t at = rest.find(quoted);
    if (at == std::string_view::npos) continue;
    message += coding.Decode(rest.substr(0, at)) + QuotedBriefly(coding.Decode(*cell));
    rest.remove_prefix(at + quoted.size());
  }
  return message + coding.Decode(rest);
}

}  // namespace

DiagnosticPrinter::DiagnosticPrinter(const Streams& streams, Progress& progress, const TextCoding& coding)
    : streams_(streams), progress_(progress), coding_(coding) {
  SetDiagnosticHandler([](const Diagnostic& diagnostic,
                          void* self) { static_cast<DiagnosticPrinter*>(self)->Receive(diagnostic); },
                       this);
  SetMessageBoxHandler([](const char*, void*) {}, nullptr);  // diagnostics say it too
}

DiagnosticPrinter::~DiagnosticPrinter() {
  SetDiagnosticHandler(nullptr, nullptr);
  SetMessageBoxHandler(nullptr, nullptr);
}

void DiagnosticPrinter::Warn(const Utf8Diagnostic& diagnostic) {
  ++warnings_;
  if (filter_ && !filter_(diagnostic)) return;
  if (style.isJson || style.showsAll || !IsOmitted(diagnostic)) Print(diagnostic);
}

bool DiagnosticPrinter::IsOmitted(const Utf8Diagnostic& warning) {
  auto kind = std::find(kinds_.begin(), kinds_.end(), warning);
  if (kind == kinds_.end()) kind = kinds_.insert(kind, {warning.file, warning.column, warning.code});
  return ++kind->count > kMaxOfKind;
}

void DiagnosticPrinter::PrintOmitted() {
  for (const Kind& kind : std::exchange(kinds_, {}))
    if (kind.count > kMaxOfKind)
      Print({kind.file, 0, kind.column, kind.code, "",
             Counted(kind.count - kMaxOfKind, "more remark") + " of this kind (" + kind.code +
                 "); --all-remarks shows all"});
}

bool DiagnosticPrinter::ForbidsWriting(const std::string& file) {
  if (!style.isStrict || warnings_ == 0) return false;
  PrintOmitted();
  Print({file, 0, "", "not-written", "", "not written, as there is something to remark on (--strict)"});
  return true;
}

void DiagnosticPrinter::Fail(const Utf8Diagnostic& diagnostic) {
  PrintOmitted();
  failed_ = true;
  Print(diagnostic);
}

void DiagnosticPrinter::Note(const std::string& sentence) {
  if (style.isJson || sentence == note_) return;
  note_ = sentence;
  progress_.Clear();
  streams_.out.flush();  // so that both streams are in order on a terminal
  streams_.error << Harmless(sentence) << '\n';
}

void DiagnosticPrinter::Receive(const Diagnostic& diagnostic) {
  if (ignored_ == diagnostic.code) return;
  if (diagnostic.code == DiagnosticCode::ByteOrderMark && diagnostic.text == kUtf8Mark) return;
  // One without a line quotes the format file or the system, which know nothing of the data's encoding.
  static const TextCoding codePage;
  const TextCoding& coding = diagnostic.line > 0 && !IsFailure(diagnostic.code) ? coding_ : codePage;
  const Utf8Diagnostic decoded{PathToUtf8(diagnostic.file),     diagnostic.line,
                               ToUtf8(diagnostic.column),       DiagnosticCodeName(diagnostic.code),
                               coding.Decode(diagnostic.text),  DecodedMessage(diagnostic, coding),
                               coding.Decode(diagnostic.stored)};
  IsFailure(diagnostic.code) ? Fail(decoded) : Warn(decoded);
}

void DiagnosticPrinter::Print(const Utf8Diagnostic& diagnostic) {
  if (IsInterrupted()) return;  // whoever ended the program knows why it fails
  progress_.Clear();
  streams_.out.flush();
  streams_.error << (style.isJson ? AsJson(diagnostic) : AsText(diagnostic, streams_.ColoursError()));
}

}  // namespace qv
