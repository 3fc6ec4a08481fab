#include "cli/check/RejectedRows.h"

#include "cli/Errors.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"

namespace qv {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;

}  // namespace

RejectedRows::RejectedRows(const Utf8Path& dataFile, Utf8Path target)
    : target_(std::move(target)),
      out_(PathFromUtf8(target_), WorkingPlace::BesideTarget),
      block_(kBlock, '\0') {
  if (!out_.Open()) Fail(out_.Reason());
  source_ = Files().Open(PathFromUtf8(dataFile), OpenMode::Read, sourceFailure_);
}

void RejectedRows::Take(std::int64_t line) {
  bool isMore = true;
  while (isMore && passed_ + 1 < line) isMore = PassLine(false);
  if (isMore) PassLine(true);
}

void RejectedRows::Commit() {
  Flush();
  if (source_ == nullptr) Fail("the data file cannot be read a second time: " + sourceFailure_);
  if (!sourceFailure_.empty()) Fail("the data file cannot be read to its end again: " + sourceFailure_);
  if (!failure_.empty()) Fail(failure_);
  if (!out_.Commit()) Fail(out_.Reason());
}

// Skips or copies the next line; false at the end of the file.
bool RejectedRows::PassLine(bool isWanted) {
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

bool RejectedRows::Fill() {
  const std::ptrdiff_t count = source_ == nullptr ? 0 : source_->Read(block_.data(), block_.size());
  if (count < 0) sourceFailure_ = source_->Reason();
  rest_ = {block_.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
  return !rest_.empty();
}

void RejectedRows::Copy(std::string_view bytes) {
  waiting_ += bytes;
  if (waiting_.size() >= kBlock) Flush();
}

// Called while the library reports, which takes no exception: a failure waits for the end.
void RejectedRows::Flush() {
  if (failure_.empty() && !waiting_.empty() && !out_.Write(waiting_)) failure_ = out_.Reason();
  waiting_.clear();
}

void RejectedRows::Fail(const std::string& reason) const {
  throw FileError({target_, 0, "", DiagnosticCodeName(DiagnosticCode::FileNotWritten), "",
                   "cannot be written: " + ToUtf8(reason)});
}

}  // namespace qv
