#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <string_view>

namespace qv {

/// A file that is written beside its target and takes the target's place in one step. Until Commit() has
/// succeeded the target stays as it was; the destructor removes the working file. What a killed run left
/// behind is taken over by the next run on the same target. A target that is no regular file (a pipe, a
/// terminal) is written in place.
class ReplacingFile {
 public:
  ReplacingFile(const std::string& target, WorkingPlace place)
      : working_(Files().PrepareWorkingFile(target, place, reason_)), failed_(working_ == nullptr) {}
  ~ReplacingFile() {
    file_.reset();  // a platform may refuse to remove an open file
    if (working_ == nullptr || committed_ || working_->IsTarget()) return;
    std::string ignored;
    Files().Remove(working_->Path(), ignored);
  }
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  /// Creates the working file and opens it for Write(). Not needed by those who let another component write
  /// to WorkingPath(). False on failure, with Reason() set.
  bool Open() {
    if (failed_) return false;
    file_ = Files().Open(working_->Path(), OpenMode::Write, reason_);
    failed_ = file_ == nullptr;
    return !failed_;
  }

  /// False on failure; a later Commit() then fails too.
  bool Write(std::string_view bytes) {
    if (failed_) return false;
    if (file_ == nullptr) return Fail("the file is not open");
    return file_->Write(bytes) || Fail(file_->Reason());
  }

  /// Flushes, closes and replaces the target. False on failure, with Reason() set and the target untouched.
  bool Commit() {
    if (failed_ || committed_) return false;
    if (file_ != nullptr) {
      if (!file_->Flush() || !file_->Close()) return Fail(file_->Reason());
      file_.reset();
    }
    if (!working_->IsTarget() && !Files().Replace(working_->Path(), working_->Target(), reason_)) {
      failed_ = true;
      return false;
    }
    committed_ = true;
    return true;
  }

  /// Where to write; empty when there is no place for it, with Reason() set.
  const std::string& WorkingPath() const {
    static const std::string none;
    return working_ == nullptr ? none : working_->Path();
  }

  /// Why the last call failed, for a person.
  const std::string& Reason() const { return reason_; }

 private:
  bool Fail(const std::string& reason) {
    reason_ = reason;
    failed_ = true;
    return false;
  }

  std::string reason_;
  std::unique_ptr<WorkingFile> working_;  // null when there is no place to write to
  std::unique_ptr<OpenFile> file_;
  bool failed_ = false;
  bool committed_ = false;
};

}  // namespace qv
