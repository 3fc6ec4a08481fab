#include "cli/Remarks.h"

#include "cli/DisplayText.h"
#include "cli/JsonText.h"
#include "platform/CodePage.h"

#include <QVAssemblyFile/MessageBox.h>

#include <algorithm>
#include <array>
#include <ostream>

namespace qv {
namespace {

// What says that a file was not read or written, rather than how it was.
constexpr std::array kFailures = {DiagnosticCode::FileNotOpened, DiagnosticCode::FileNotWritten,
                                  DiagnosticCode::UnsupportedFileType, DiagnosticCode::NoSpreadsheet,
                                  DiagnosticCode::SpreadsheetFailed};

bool IsFailure(DiagnosticCode code) {
  return std::find(kFailures.begin(), kFailures.end(), code) != kFailures.end();
}

std::string AsJson(const Remark& remark) {
  std::string line = "{\"file\":";
  AppendJsonText(line, remark.file);
  line += ",\"line\":" + std::to_string(remark.line);
  const std::pair<const char*, const std::string&> texts[] = {{",\"column\":", remark.column},
                                                              {",\"code\":", remark.code},
                                                              {",\"text\":", remark.text},
                                                              {",\"message\":", remark.message}};
  for (const auto& [key, text] : texts) {
    line += key;
    AppendJsonText(line, text);
  }
  return line + "}\n";
}

std::string AsText(const Remark& remark, bool isColoured) {
  std::string where = Harmless(remark.file);
  if (remark.line > 0) where += ":" + std::to_string(remark.line);
  std::string line = where.empty() ? "qvassembly: " : Bold(where + ":", isColoured) + " ";
  if (!remark.column.empty()) line += Harmless(remark.column) + ": ";
  return line + Harmless(remark.message) + "\n";
}

}  // namespace

Remarks::Remarks(const Streams& streams, Progress& progress) : streams_(streams), progress_(progress) {
  SetDiagnosticHandler(
      [](const Diagnostic& diagnostic, void* self) { static_cast<Remarks*>(self)->Receive(diagnostic); },
      this);
  SetMessageBoxHandler(
      [](const char* text, void* self) { static_cast<Remarks*>(self)->messageBox_ = ToUtf8(text); }, this);
}

Remarks::~Remarks() {
  SetDiagnosticHandler(nullptr, nullptr);
  SetMessageBoxHandler(nullptr, nullptr);
}

void Remarks::Warn(const Remark& remark) {
  ++warnings_;
  if (listener_ == nullptr || listener_->Hear(remark)) Tell(remark);
}

void Remarks::Fail(const Remark& remark) {
  failed_ = true;
  Tell(remark);
}

void Remarks::Note(const std::string& sentence) {
  if (isJson_) return;
  progress_.Clear();
  streams_.out.flush();  // what was printed before stands before
  streams_.error << Harmless(sentence) << '\n';
}

void Remarks::Receive(const Diagnostic& diagnostic) {
  if (silence_ != nullptr && silence_->Keep(diagnostic.code)) return;
  // A remark without a line quotes the format file or the system, which know nothing of the data's encoding.
  static const TextCoding codePage;
  const TextCoding& coding = diagnostic.line > 0 && !IsFailure(diagnostic.code) ? coding_ : codePage;
  const Remark remark{ToUtf8(diagnostic.file),         diagnostic.line,
                      ToUtf8(diagnostic.column),       DiagnosticCodeName(diagnostic.code),
                      coding.Decode(diagnostic.text),  coding.Decode(diagnostic.message),
                      coding.Decode(diagnostic.stored)};
  IsFailure(diagnostic.code) ? Fail(remark) : Warn(remark);
}

void Remarks::Tell(const Remark& remark) {
  progress_.Clear();
  streams_.out.flush();
  streams_.error << (isJson_ ? AsJson(remark) : AsText(remark, streams_.ColoursError()));
}

}  // namespace qv
