// Runs one office in a folder of its own and leaves nothing behind: neither the process, nor the folder, nor
// the sockets by which it is reached, whether it ends by itself, is given up, or the program that wanted it
// dies. That program holds the other end of our standard input; the office ends when that end is closed.
//
// usage: QVOfficeGuard PROGRAM_FOLDER PIPE_NAME

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr int kRestartWanted = 81;  // how an office may end its first run with a fresh profile
constexpr int kMaxStarts = 4;
constexpr int kSocketWatchMilliseconds = 50;

class PrivateFolder {
 public:
  PrivateFolder() {
    std::error_code ignored;
    path_ = (fs::temp_directory_path(ignored) / "qvassembly-XXXXXX").string();
    if (mkdtemp(path_.data()) == nullptr) path_.clear();
  }
  ~PrivateFolder() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
  }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

/// An office that does not find its own build in its profile cleans up what none has left there, and starts a
/// second time.
void PrepareProfile(const std::string& programFolder, const std::string& profile) {
  constexpr std::string_view kBuild = "buildid=";
  std::ifstream versions(programFolder + "/versionrc");
  for (std::string line; std::getline(versions, line);) {
    if (!line.starts_with(kBuild)) continue;
    const fs::path folder = fs::path(profile) / "user/extensions";
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    std::ofstream(folder / "buildid") << line.substr(kBuild.size());
  }
}

/// A path as a file: URL.
std::string UrlOf(const std::string& path) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0 || std::strchr("/-_.~", c) != nullptr)
      url += c;
    else
      (url += '%').append({kDigits[byte >> 4], kDigits[byte & 15]});
  }
  return url;
}

/// The socket files that a process has bound. A killed one leaves them lying about.
class BoundSockets {
 public:
  explicit BoundSockets(const std::string& pipeName)
      : accepted_("/tmp/OSL_PIPE_" + std::to_string(getuid()) + "_" + pipeName) {}
  ~BoundSockets() {
    std::error_code ignored;
    for (const std::string& path : paths_) fs::remove(path, ignored);
    fs::remove(accepted_, ignored);  // also where the office was killed before it could be learnt
  }
  BoundSockets(const BoundSockets&) = delete;
  BoundSockets& operator=(const BoundSockets&) = delete;

  /// The last socket that an office binds is the one it was told to accept on; nothing is left to learn then.
  bool AreComplete() const { return paths_.contains(accepted_); }

  void LearnFrom(pid_t process) {
    const std::set<std::string> held = InodesOf(process);
    std::ifstream table("/proc/net/unix");
    for (std::string line; std::getline(table, line);) {
      std::istringstream words(line);
      std::string skipped, inode, path;
      for (int word = 0; word < 6; ++word) words >> skipped;
      words >> inode >> path;
      if (path.starts_with('/') && held.contains(inode)) paths_.insert(path);
    }
  }

 private:
  static std::set<std::string> InodesOf(pid_t process) {
    constexpr std::string_view kPrefix = "socket:[";
    std::set<std::string> inodes;
    std::error_code failed;
    fs::directory_iterator entry("/proc/" + std::to_string(process) + "/fd", failed);
    for (const fs::directory_iterator end; !failed && entry != end; entry.increment(failed)) {
      std::error_code gone;
      const std::string link = fs::read_symlink(entry->path(), gone).string();
      if (link.starts_with(kPrefix))
        inodes.insert(link.substr(kPrefix.size(), link.size() - kPrefix.size() - 1));
    }
    return inodes;
  }

  std::string accepted_;
  std::set<std::string> paths_;
};

[[noreturn]] void RunOffice(const std::string& programFolder, const std::string& folder,
                            const std::string& pipeName, pid_t guard) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != guard) _exit(1);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  const int nothing = open("/dev/null", O_RDWR);
  dup2(nothing, STDIN_FILENO);
  setenv("TMPDIR", folder.c_str(), 1);
  const std::string office = programFolder + "/soffice.bin";
  const std::string installation = "-env:UserInstallation=" + UrlOf(folder) + "/profile";
  const std::string accept = "--accept=pipe,name=" + pipeName + ";urp";
  execl(office.c_str(), office.c_str(), "--headless", "--norestore", "--nologo", "--nodefault",
        "--nolockcheck", installation.c_str(), accept.c_str(), static_cast<char*>(nullptr));
  _exit(127);
}

/// A descriptor that becomes readable when a child ends.
int WatchChildren() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGCHLD);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

bool HasEnded(pid_t office, int& status) { return waitpid(office, &status, WNOHANG) == office; }

/// Waits for the office's end, or brings it about when nobody wants it any more. Returns its status.
int AwaitEnd(pid_t office, int childEvents, BoundSockets& sockets) {
  int status = 0;
  while (!HasEnded(office, status)) {
    const int timeout = sockets.AreComplete() ? -1 : kSocketWatchMilliseconds;
    pollfd events[] = {{STDIN_FILENO, POLLIN, 0}, {childEvents, POLLIN, 0}};
    poll(events, 2, timeout);
    if (!sockets.AreComplete()) sockets.LearnFrom(office);
    signalfd_siginfo ignored;
    while (read(childEvents, &ignored, sizeof ignored) > 0) continue;
    if (events[0].revents == 0) continue;
    kill(office, SIGKILL);
    waitpid(office, &status, 0);
    break;
  }
  return status;
}

int Guard(const std::string& programFolder, const std::string& pipeName) {
  const PrivateFolder folder;
  if (folder.Path().empty()) return 1;
  PrepareProfile(programFolder, folder.Path() + "/profile");
  const int childEvents = WatchChildren();
  for (int start = 0; start < kMaxStarts; ++start) {
    BoundSockets sockets(pipeName);
    const pid_t guard = getpid();
    const pid_t office = fork();
    if (office < 0) return 1;
    if (office == 0) RunOffice(programFolder, folder.Path(), pipeName, guard);
    const int status = AwaitEnd(office, childEvents, sockets);
    if (!WIFEXITED(status)) return 1;
    if (WEXITSTATUS(status) != kRestartWanted) return WEXITSTATUS(status);
  }
  return 1;
}

}  // namespace

int main(int argc, char** argv) { return argc == 3 ? Guard(argv[1], argv[2]) : 2; }
