#include "platform/FileSystem.h"
#include "platform/posix/Descriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace qv {
namespace {

namespace fs = std::filesystem;

constexpr int kSlots = 16;  // processes that may rewrite one file at the same moment
constexpr int kMaxAttempts = 1000;
constexpr int kPauseMicroseconds = 5000;
constexpr int kMaxLinks = 40;
constexpr std::size_t kMaxName = 230;  // leaves room for our prefix and suffix within the usual 255

// A folder of ours with a held lock. Emptied when it is claimed and removed when it is given back.
class ClaimedFolder {
 public:
  enum class Result { Claimed, Busy, Vanished, Impossible };

  // Result::Impossible leaves the cause in errno.
  static Result Claim(const fs::path& folder, ClaimedFolder& claim) {
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) return Result::Impossible;
    if (!IsOurs(folder)) return Result::Busy;
    const fs::path lockPath = folder / kLockName;
    Descriptor lock(::open(lockPath.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!lock.IsOpen()) return errno == ENOENT ? Result::Vanished : Result::Impossible;
    if (::flock(lock.Get(), LOCK_EX | LOCK_NB) != 0) {
      return errno == EWOULDBLOCK ? Result::Busy : Result::Impossible;
    }
    // The last holder may have removed the lock between our opening and our locking it.
    if (!IsStillThere(lock, lockPath)) return Result::Vanished;
    claim.folder_ = folder;
    claim.lock_ = std::move(lock);
    claim.RemoveContent();
    return Result::Claimed;
  }

  ClaimedFolder() = default;
  ClaimedFolder(ClaimedFolder&& other) noexcept
      : folder_(std::exchange(other.folder_, {})), lock_(std::move(other.lock_)) {}
  ~ClaimedFolder() {
    if (folder_.empty()) return;
    RemoveContent();
    ::unlink((folder_ / kLockName).c_str());
    ::rmdir(folder_.c_str());  // the lock is still held, so another process that comes now starts anew
  }

 private:
  static constexpr const char* kLockName = ".lock";

  static bool IsOurs(const fs::path& folder) {
    struct stat status {};
    return ::lstat(folder.c_str(), &status) != 0 ? errno == ENOENT
                                                 : S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
  }

  static bool IsStillThere(const Descriptor& lock, const fs::path& path) {
    struct stat held {
    }, found{};
    return ::fstat(lock.Get(), &held) == 0 && ::lstat(path.c_str(), &found) == 0 &&
           held.st_ino == found.st_ino && held.st_dev == found.st_dev;
  }

  void RemoveContent() const {
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
      std::error_code ignored;
      if (entry->path().filename() != kLockName) fs::remove_all(entry->path(), ignored);
    }
  }

  fs::path folder_;
  Descriptor lock_;
};

class PosixWorkingFile final : public WorkingFile {
 public:
  PosixWorkingFile(const std::string& target, const std::string& path, ClaimedFolder folder)
      : WorkingFile(target, path), folder_(std::move(folder)) {}

 private:
  ClaimedFolder folder_;
};

// A name that would get too long is truncated and made unique by a hash.
std::string ShortName(const std::string& name) {
  if (name.size() <= kMaxName) return name;
  std::uint32_t hash = 2166136261u;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  char suffix[16];
  std::snprintf(suffix, sizeof suffix, "-%08x", static_cast<unsigned>(hash));
  return name.substr(0, kMaxName - 9) + suffix;
}

fs::path SlotFolder(const fs::path& target, int slot) {
  std::string name = "." + ShortName(target.filename().string()) + ".qvtmp";
  if (slot > 0) name += std::to_string(slot);
  return target.parent_path() / name;
}

// Components that write the file themselves look at its extension.
std::string WorkingName(const fs::path& target) {
  const std::string extension = target.extension().string();
  return extension.size() <= kMaxName ? "new" + extension : "new";
}

// What killed runs left in other slots. A slot in use is locked and stays.
void SweepSlots(const fs::path& target, int taken) {
  for (int slot = 0; slot < kSlots; ++slot) {
    const fs::path folder = SlotFolder(target, slot);
    struct stat status {};
    if (slot == taken || ::lstat(folder.c_str(), &status) != 0) continue;
    ClaimedFolder stale;
    ClaimedFolder::Claim(folder, stale);
  }
}

std::unique_ptr<WorkingFile> ClaimSlot(const fs::path& target, std::string& reason) {
  int slot = 0;
  for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
    ClaimedFolder claim;
    switch (ClaimedFolder::Claim(SlotFolder(target, slot), claim)) {
      case ClaimedFolder::Result::Claimed: {
        SweepSlots(target, slot);
        const std::string path = (SlotFolder(target, slot) / WorkingName(target)).string();
        return std::make_unique<PosixWorkingFile>(target.string(), path, std::move(claim));
      }
      case ClaimedFolder::Result::Busy:
        // Whoever looks for killed runs holds a slot for a moment, so that all may seem taken.
        if (++slot < kSlots) break;
        slot = 0;
        ::usleep(kPauseMicroseconds);
        break;
      case ClaimedFolder::Result::Vanished:
        break;
      case ClaimedFolder::Result::Impossible:
        reason = SystemReason(errno);
        return nullptr;
    }
  }
  reason = "too many programs are writing this file at once";
  return nullptr;
}

std::unique_ptr<WorkingFile> InPlace(const std::string& target) {
  return std::make_unique<WorkingFile>(target, target);
}

// /dev/stdout and its like lead to open files: replacing the target would detach it from whoever
// redirected the stream.
bool IsOpenStream(const fs::path& link) {
  std::error_code ignored;
  return fs::canonical(link.parent_path(), ignored).string().starts_with("/proc/");
}

// Follows the links at the path's end, also those that lead to nothing yet. False for an open stream.
bool FollowLinks(fs::path& path) {
  std::error_code error;
  for (int links = 0; links < kMaxLinks && fs::is_symlink(path, error); ++links) {
    if (IsOpenStream(path)) return false;
    const fs::path behind = fs::read_symlink(path, error);
    path = behind.is_absolute() ? behind : path.parent_path() / behind;
  }
  return true;
}

bool MayReplace(const std::string& target, bool exists, std::string& reason) {
  const bool may = exists ? ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) == 0 : errno == ENOENT;
  if (!may) reason = SystemReason(errno);
  return may;
}

}  // namespace

// A hidden folder beside the target, named after it, so that the next run finds what a killed one left. Its
// lock distinguishes a live process from a dead one.
std::unique_ptr<WorkingFile> FileSystem::PrepareWorkingFile(const std::string& target, WorkingPlace,
                                                            std::string& reason) {
  struct stat status {};
  const bool exists = ::stat(target.c_str(), &status) == 0;
  if (!MayReplace(target, exists, reason)) return nullptr;
  if (exists && !S_ISREG(status.st_mode)) return InPlace(target);
  fs::path path = target;
  if (!FollowLinks(path)) return InPlace(target);
  if (!path.has_filename()) {
    reason = SystemReason(exists ? EISDIR : ENOENT);
    return nullptr;
  }
  return ClaimSlot(path, reason);
}

}  // namespace qv
