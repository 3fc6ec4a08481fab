#pragma once

#include "cli/DataStart.h"
#include "cli/Errors.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/FileSystem.h"
#include "platform/ReplacingFile.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace qv {

/// Copies lines of a data file, byte for byte, to another file, which appears or is replaced at the end.
class RejectedRows {
 public:
  /// Throws FileError when `target`, which is another file, cannot be written.
  RejectedRows(const Utf8Path& dataFile, Utf8Path target)
      : target_(std::move(target)), out_(PathFromUtf8(target_), WorkingPlace::BesideTarget) {
    if (!out_.Open()) Fail(out_.Reason());
    source_ = Files().Open(PathFromUtf8(dataFile), OpenMode::Read, sourceFailure_);
  }

  /// Copies the line of this 1-based number, which is greater than that of the last one.
  void Take(std::int64_t line) {
    bool isMore = true;
    while (isMore && passed_ + 1 < line) isMore = PassLine(false);
    if (isMore) PassLine(true);
  }

  /// Puts the copy in its place, also when no line was taken. Throws FileError.
  void Commit() {
    Flush();
    if (source_ == nullptr) Fail("the data file cannot be read a second time: " + sourceFailure_);
    if (!sourceFailure_.empty()) Fail("the data file cannot be read to its end again: " + sourceFailure_);
    if (!failure_.empty()) Fail(failure_);
    if (!out_.Commit()) Fail(out_.Reason());
  }

 private:
  static constexpr std::size_t kBlock = std::size_t{1} << 16;

  // Skips or copies the next line; false at the end of the file.
  bool PassLine(bool isWanted) {
    ++passed_;
    while (!rest_.empty() || Fill()) {
      const std::size_t lineFeed = rest_.find('\n');
      const bool isWhole = lineFeed != std::string_view::npos;
      const std::string_view part = rest_.substr(0, isWhole ? lineFeed + 1 : rest_.size());
      if (isWanted) Copy(part);
      rest_.remove_prefix(part.size());
      if (isWhole) return true;
    }
    return false;
  }

  bool Fill() {
    const std::ptrdiff_t count = source_ == nullptr ? 0 : source_->Read(block_.data(), block_.size());
    if (count < 0) sourceFailure_ = source_->Reason();
    rest_ = {block_.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
    return !rest_.empty();
  }

  void Copy(std::string_view bytes) {
    waiting_ += bytes;
    if (waiting_.size() >= kBlock) Flush();
  }

  // Called while the library reports, which takes no exception: a failure waits for the end.
  void Flush() {
    if (failure_.empty() && !waiting_.empty() && !out_.Write(waiting_)) failure_ = out_.Reason();
    waiting_.clear();
  }

  [[noreturn]] void Fail(const std::string& reason) const {
    throw FileError({target_, 0, "", DiagnosticCodeName(DiagnosticCode::FileNotWritten), "",
                     "cannot be written: " + ToUtf8(reason)});
  }

  Utf8Path target_;
  std::string sourceFailure_;
  std::unique_ptr<OpenFile> source_;  // null when the data file cannot be read
  ReplacingFile out_;
  std::string block_ = std::string(kBlock, '\0');
  std::string_view rest_;    // of the block
  std::int64_t passed_ = 0;  // lines that have been passed by
  std::string waiting_;      // to be written
  std::string failure_;      // the first one of writing
};

}  // namespace qv
