#include "platform/spreadsheet/calc/OfficeProcess.h"

#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <thread>

namespace qv {
namespace {

constexpr char kGuardFile[] = "QVOfficeGuard";

/// The guard is installed beside the component.
std::string GuardPath() {
  Dl_info info;
  if (dladdr(reinterpret_cast<const void*>(&GuardPath), &info) == 0) return kGuardFile;
  const std::string file = info.dli_fname;
  return file.substr(0, file.rfind('/') + 1) + kGuardFile;
}

/// How the guard is started: with the pipe as its only connection to this process, and out of reach of the
/// signals of a terminal.
class SpawnSettings {
 public:
  explicit SpawnSettings(int livenessPipe) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_adddup2(&actions_, livenessPipe, STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setflags(&attributes_,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnSettings() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  const posix_spawn_file_actions_t* Actions() const { return &actions_; }
  const posix_spawnattr_t* Attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
};

}  // namespace

OfficeProcess::OfficeProcess(const std::string& programFolder, std::string pipeName)
    : pipeName_(std::move(pipeName)) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw SpreadsheetError(std::strerror(errno));
  livenessPipe_ = ends[1];
  std::string guard = GuardPath();
  std::string folder = programFolder;
  char* const arguments[] = {guard.data(), folder.data(), pipeName_.data(), nullptr};
  const SpawnSettings settings(ends[0]);
  const int failure =
      posix_spawn(&guard_, guard.c_str(), settings.Actions(), settings.Attributes(), arguments, environ);
  close(ends[0]);
  if (failure == 0) return;
  close(livenessPipe_);
  throw SpreadsheetError(guard + " cannot be started: " + std::strerror(failure));
}

OfficeProcess::~OfficeProcess() {
  close(livenessPipe_);
  while (!ended_ && waitpid(guard_, nullptr, 0) < 0 && errno == EINTR) continue;
}

bool OfficeProcess::HasEnded() {
  // A host that reaps all children itself leaves us none to ask about.
  if (!ended_) ended_ = waitpid(guard_, nullptr, WNOHANG) != 0;
  return ended_;
}

void OfficeProcess::AwaitEnd(std::chrono::milliseconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (!HasEnded() && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

}  // namespace qv
