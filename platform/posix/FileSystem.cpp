#include "platform/FileSystem.h"

#include "platform/Interruption.h"
#include "platform/posix/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace qv {
namespace {

// Makes a call of the system, again where a signal has interrupted it; not at all once the process is to end.
template <class Call>
auto Retrying(Call call) {
  decltype(call()) result = -1;
  do {
    if (IsInterrupted())
      errno = EINTR;
    else
      result = call();
  } while (result < 0 && errno == EINTR && !IsInterrupted());
  return result;
}

class PosixFile final : public OpenFile {
 public:
  explicit PosixFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    const ssize_t count = Retrying([&] { return ::read(descriptor_.Get(), buffer, capacity); });
    if (count < 0) reason_ = SystemReason(errno);
    return count;
  }

  std::int64_t Size() override {
    struct stat status {};
    const bool isKnown = ::fstat(descriptor_.Get(), &status) == 0 && S_ISREG(status.st_mode);
    return isKnown ? status.st_size : 0;
  }

  bool Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = Retrying([&] { return ::write(descriptor_.Get(), bytes.data(), bytes.size()); });
      if (count < 0) return Fail(errno);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
  }

  bool Flush() override {
    if (::fsync(descriptor_.Get()) == 0) return true;
    const bool notOnDisk = errno == EINVAL || errno == EROFS || errno == ENOTSUP;  // a pipe, a terminal
    return notOnDisk || Fail(errno);
  }

  bool Close() override {
    const int error = descriptor_.Close();
    return error == 0 || Fail(error);
  }

 private:
  bool Fail(int error) {
    reason_ = SystemReason(error);
    return false;
  }

  Descriptor descriptor_;
};

// A replaced file keeps its owner and permissions, as one that is written in place does. Only a privileged
// user can give the owner back; for everybody else the file becomes theirs, as a saved file does.
void PassPermissions(const struct stat& old, int descriptor) {
  if (::fchown(descriptor, old.st_uid, old.st_gid) != 0 && ::fchown(descriptor, uid_t(-1), old.st_gid) != 0) {
    errno = 0;
  }
  ::fchmod(descriptor, old.st_mode & 07777);
}

bool MakeReadyToReplace(const std::string& from, const std::string& to) {
  const Descriptor file(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) return false;
  struct stat old {};
  if (::stat(to.c_str(), &old) == 0) PassPermissions(old, file.Get());
  return ::fsync(file.Get()) == 0;
}

// The new name is durable only when its folder is. The replacement has happened either way.
void SyncFolderOf(const std::string& path) {
  const std::string parent = std::filesystem::path(path).parent_path().string();
  const Descriptor folder(::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) ::fsync(folder.Get());
}

class PosixFileSystem final : public FileSystem {
 public:
  std::unique_ptr<OpenFile> Open(const std::string& path, OpenMode mode, std::string& reason) override {
    const int flags = mode == OpenMode::Read ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC;
    Descriptor descriptor(Retrying([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, 0666); }));
    struct stat status {};
    if (!descriptor.IsOpen() || ::fstat(descriptor.Get(), &status) != 0) {
      reason = SystemReason(errno);
      return nullptr;
    }
    if (S_ISDIR(status.st_mode)) {
      reason = SystemReason(EISDIR);
      return nullptr;
    }
    return std::make_unique<PosixFile>(std::move(descriptor));
  }

  bool Replace(const std::string& from, const std::string& to, std::string& reason) override {
    if (!MakeReadyToReplace(from, to) || ::rename(from.c_str(), to.c_str()) != 0) {
      reason = SystemReason(errno);
      return false;
    }
    SyncFolderOf(to);
    return true;
  }

  bool Remove(const std::string& path, std::string& reason) override {
    if (::unlink(path.c_str()) == 0) return true;
    reason = SystemReason(errno);
    return false;
  }

  bool Exists(const std::string& path) override { return ::access(path.c_str(), F_OK) == 0; }
};

}  // namespace

bool LeadsToStream(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_other(std::filesystem::status(path, ignored));
}

FileSystem& PlatformFiles() {
  static PosixFileSystem files;
  return files;
}

const std::string_view kLineEnd = "\n";
const int kEndOfText = -1;

std::string ProgramPath() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

}  // namespace qv
