#include "platform/ReplacingFile.h"

namespace qv {

ReplacingFile::ReplacingFile(const std::string& target, WorkingPlace place)
    : working_(Files().PrepareWorkingFile(target, place, reason_)), failed_(working_ == nullptr) {}

ReplacingFile::~ReplacingFile() {
  file_.reset();  // a platform may refuse to remove an open file
  if (working_ == nullptr || committed_ || working_->IsTarget()) return;
  std::string ignored;
  Files().Remove(working_->Path(), ignored);
}

const std::string& ReplacingFile::WorkingPath() const {
  static const std::string none;
  return working_ == nullptr ? none : working_->Path();
}

bool ReplacingFile::Open() {
  if (failed_) return false;
  file_ = Files().Open(working_->Path(), OpenMode::Write, reason_);
  failed_ = file_ == nullptr;
  return !failed_;
}

bool ReplacingFile::Write(std::string_view bytes) {
  if (failed_) return false;
  if (file_ == nullptr) return Fail("the file is not open");
  return file_->Write(bytes) || Fail(file_->Reason());
}

bool ReplacingFile::Commit() {
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

bool ReplacingFile::Fail(const std::string& reason) {
  reason_ = reason;
  failed_ = true;
  return false;
}

}  // namespace qv
