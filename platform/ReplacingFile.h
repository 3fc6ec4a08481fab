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
  ReplacingFile(const std::string& target, WorkingPlace place);
  ~ReplacingFile();
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  /// Creates the working file and opens it for Write(). Not needed by those who let another component write
  /// to WorkingPath(). False on failure, with Reason() set.
  bool Open();

  /// False on failure; a later Commit() then fails too.
  bool Write(std::string_view bytes);

  /// Flushes, closes and replaces the target. False on failure, with Reason() set and the target untouched.
  bool Commit();

  /// Where to write; empty when there is no place for it, with Reason() set.
  const std::string& WorkingPath() const;

  /// Why the last call failed, for a person.
  const std::string& Reason() const { return reason_; }

 private:
  bool Fail(const std::string& reason);

  std::string reason_;
  std::unique_ptr<WorkingFile> working_;  // null when there is no place to write to
  std::unique_ptr<OpenFile> file_;
  bool failed_ = false;
  bool committed_ = false;
};

}  // namespace qv
