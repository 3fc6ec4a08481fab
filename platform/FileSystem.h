#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qv {

/// How a file is opened. Reading and writing are shared with other processes.
enum class OpenMode {
  Read,   ///< an existing file
  Write,  ///< created, or emptied when it exists
};

/// One open file. Bytes go through as they are; line ends are the caller's business.
class OpenFile {
 public:
  virtual ~OpenFile() = default;

  /// Reads up to `capacity` bytes into `buffer`. Returns the count, 0 at the end of the file, -1 on failure.
  virtual std::ptrdiff_t Read(char* buffer, std::size_t capacity) = 0;

  /// How many bytes the file has; 0 where it is not known, as of a pipe.
  virtual std::int64_t Size() { return 0; }

  /// Writes all of `bytes`; false when not all of them could be written.
  virtual bool Write(std::string_view bytes) = 0;

  /// Makes what was written durable; false on failure.
  virtual bool Flush() = 0;

  /// Closes; false when the system reports a late write failure. The destructor closes silently.
  virtual bool Close() = 0;

  /// The system's reason for the last failure, for a person.
  const std::string& Reason() const { return reason_; }

 protected:
  std::string reason_;
};

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

/// The file operations of the library. Paths are narrow text in the platform's code page. Every failing call
/// leaves the system's reason for a person in `reason` ("No such file or directory").
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Null on failure. A directory is not a file: opening one fails.
  virtual std::unique_ptr<OpenFile> Open(const std::string& path, OpenMode mode, std::string& reason) = 0;

  /// Chooses and claims the place for a new content of `target`; the claim ends with its process, even one
  /// that is killed. A place that an earlier, killed run used for
  /// the same target is cleared and used again where the platform's names allow it; one that another process
  /// is using is left alone. Null when there can be none: `target` is write-protected, its folder is missing.
  virtual std::unique_ptr<WorkingFile> PrepareWorkingFile(const std::string& target, WorkingPlace place,
                                                          std::string& reason);

  /// Makes `from` durable and puts it in the place of `to` in one step: a process that opens `to` sees the
  /// old file or the new one. An existing `to` passes its permissions on.
  virtual bool Replace(const std::string& from, const std::string& to, std::string& reason) = 0;

  virtual bool Remove(const std::string& path, std::string& reason) = 0;
  virtual bool Exists(const std::string& path) = 0;
};

/// The file system in use: the platform's, unless a test has set another.
FileSystem& Files();

/// Puts `files` in the platform's place; null brings it back. For tests.
void SetFileSystem(FileSystem* files);

/// The platform's file system itself.
FileSystem& PlatformFiles();

/// The bytes of a file, or the first of them up to `limit`; nothing, with `reason`, when they cannot be read.
std::optional<std::string> ReadFile(const std::string& path, std::string& reason,
                                    std::size_t limit = std::string::npos);

/// Whether the path leads to a pipe or a device, whose bytes come only once, and when they come.
bool LeadsToStream(const std::string& path);

/// How the platform's text files look: written lines end with kLineEnd, and a kEndOfText byte (if not -1)
/// ends a read.
extern const std::string_view kLineEnd;
extern const int kEndOfText;

/// Full path of the running program.
std::string ProgramPath();

}  // namespace qv
