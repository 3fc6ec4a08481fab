#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <string_view>

namespace qv {

/// Where the working file stands while the new content is written.
enum class WorkingPlace {
  BesideTarget,   ///< in the target's folder
  WorkingFolder,  ///< Windows: a folder named after the current second at the root of the target's drive;
                  ///< elsewhere the same as BesideTarget
};

/// A file that is written beside its target and takes the target's place in one step. Until Commit() has
/// succeeded the target stands as it was; the destructor removes the working file. What a killed run left
/// behind is taken over by the next run on the same target.
class ReplacingFile {
 public:
  ReplacingFile(std::string target, WorkingPlace place);
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

  const std::string& WorkingPath() const { return workingPath_; }
  const std::string& Reason() const { return reason_; }

 private:
  std::string target_;
  std::string workingFolder_;  // empty when the working file lies beside the target
  std::string workingPath_;
  std::string reason_;
  std::unique_ptr<OpenFile> file_;
  bool failed_ = false;
  bool committed_ = false;
};

}  // namespace qv
