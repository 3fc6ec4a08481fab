#pragma once

#include "engines/FileDiagnostics.h"
#include "engines/columns/TextBuffer.h"
#include "platform/ReplacingFile.h"

#include <string>
#include <string_view>

namespace qv {

/// Writes a text file in large blocks and puts it in its target's place when it is whole. Reports what goes
/// wrong once.
class TextFileWriter {
 public:
  TextFileWriter(const FileDiagnostics& diagnostics, WorkingPlace place)
      : diagnostics_(diagnostics),
        meter_(diagnostics.File(), FileProgress::Work::Writing, FileProgress::Unit::Bytes),
        file_(diagnostics.File(), place) {
    if (!file_.Open()) Fail();
  }

  /// True once the file cannot be written any more: all that follows is in vain.
  bool HasFailed() const { return hasFailed_; }

  /// The text that has not been written yet; append to it, then end the line.
  TextBuffer& Pending() { return pending_; }

  void EndLine() {
    pending_ += '\n';
    if (pending_.Size() >= kBlockSize) WritePending();
  }

  /// Writes what is pending; false when the file cannot be written.
  bool Finish() {
    WritePending();
    return !hasFailed_;
  }

  /// False when the target stays as it was.
  bool Commit() {
    if (Finish() && !file_.Commit()) Fail();
    return !hasFailed_;
  }

 private:
  static constexpr std::size_t kBlockSize = std::size_t{1} << 18;

  void Fail() {
    hasFailed_ = true;
    if (meter_.IsCancelled())
      diagnostics_.Report(DiagnosticCode::Cancelled, 0, "cancelled; the file is left as it was");
    else
      diagnostics_.Report(DiagnosticCode::FileNotWritten, 0, "cannot be written: " + file_.Reason());
  }

  void WritePending() {
    const std::string_view text = AsPlatformText(pending_.View());
    const auto size = static_cast<std::int64_t>(text.size());
    if (!hasFailed_ && (!file_.Write(text) || !meter_.Advance(size))) Fail();
    pending_.Clear();
  }

  // A line feed in a cell becomes what it is in the platform's text files, as the one at the line's end does.
  std::string_view AsPlatformText(std::string_view text) {
    if (kLineEnd == "\n") return text;
    platformText_.clear();
    for (std::size_t end; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1))
      platformText_.append(text.substr(0, end)).append(kLineEnd);
    return platformText_.append(text);
  }

  const FileDiagnostics& diagnostics_;
  ProgressMeter meter_;
  ReplacingFile file_;
  bool hasFailed_ = false;
  TextBuffer pending_;
  std::string platformText_;
};

}  // namespace qv
