#pragma once

#include <memory>
#include <string>
#include <utility>

namespace qv {

/// Where the working file lies while the new content of a file is written.
enum class WorkingPlace {
  BesideTarget,   ///< in the target's folder
  WorkingFolder,  ///< Windows: a folder named after the current second at the root of the target's drive;
                  ///< elsewhere the same as BesideTarget
};

/// The place where a file's new content is written, claimed against other processes until it is destroyed.
/// Its destructor gives the place back and removes what the platform put there beside the working file (its
/// folder, say), but not the working file itself.
class WorkingFile {
 public:
  WorkingFile(std::string target, std::string path) : target_(std::move(target)), path_(std::move(path)) {}
  virtual ~WorkingFile() = default;
  WorkingFile(const WorkingFile&) = delete;
  WorkingFile& operator=(const WorkingFile&) = delete;

  /// The file that the working file will replace: the target of a link.
  const std::string& Target() const { return target_; }

  /// Where to write. It bears the target's extension, and does not exist yet.
  const std::string& Path() const { return path_; }

  /// The target is no file that could be replaced (a pipe, a terminal): write it in place.
  bool IsTarget() const { return path_ == target_; }

 private:
  std::string target_;
  std::string path_;
};

/// Claims the place for a new content of `target`, as FileSystem::PrepareWorkingFile() does. The claim ends
/// with its process, even one that is killed.
std::unique_ptr<WorkingFile> ClaimWorkingFile(const std::string& target, WorkingPlace place,
                                              std::string& reason);

}  // namespace qv
