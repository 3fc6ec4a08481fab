#include "platform/spreadsheet/calc/OfficeConnection.h"

#include "platform/spreadsheet/calc/Office.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <thread>

namespace qv {
namespace {

constexpr std::chrono::seconds kStartPatience(60);
constexpr std::chrono::milliseconds kRetryPause(10);
constexpr std::chrono::seconds kQuitPatience(10);

/// A name that no other process, and no other operation of this one, uses.
std::string NewPipeName() {
  static std::atomic<unsigned> counter{0};
  return "qvassembly-" + std::to_string(getpid()) + "-" + std::to_string(++counter);
}

/// What this process must know of the office's interfaces before it can speak to it.
css::uno::Reference<css::uno::XComponentContext> LocalContext(const std::string& programFolder) {
  rtl::Bootstrap::set("URE_MORE_TYPES", FileUrl(programFolder + "/types/offapi.rdb"));
  return cppu::defaultBootstrap_InitialComponentContext();
}

/// Keeps SIGPIPE from this thread, and for good from those that it starts, while it lives. The line to the
/// office is written by threads of its own; when the office dies, the signal would end the host.
class NoPipeSignal {
 public:
  NoPipeSignal() {
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, &before_);
  }
  ~NoPipeSignal() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  NoPipeSignal(const NoPipeSignal&) = delete;
  NoPipeSignal& operator=(const NoPipeSignal&) = delete;

 private:
  sigset_t before_;
};

constexpr char kGuardFile[] = "QVOfficeGuard";

/// The guard is installed beside the component.
std::string GuardPath() {
  Dl_info info;
  if (dladdr(reinterpret_cast<const void*>(&GuardPath), &info) == 0) return kGuardFile;
  const std::string file = info.dli_fname;
  return file.substr(0, file.rfind('/') + 1) + kGuardFile;
}

/// Starts the guard: with the pipe as its only connection to this process, and out of reach of the signals of
/// a terminal. Returns an error number.
int Spawn(pid_t& guard, char* const arguments[], int livenessPipe) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, livenessPipe, STDIN_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  sigset_t none, all;
  sigemptyset(&none);
  sigfillset(&all);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setsigdefault(&attributes, &all);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  const int failure = posix_spawn(&guard, arguments[0], &actions, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return failure;
}

}  // namespace

/// An office of one's own, run by its guard. The destructor ends it and returns when neither process nor
/// files are left.
class OfficeProcess {
 public:
  /// Starts the guard, which starts the office. Throws SpreadsheetError.
  OfficeProcess(const std::string& programFolder, std::string pipeName) : pipeName_(std::move(pipeName)) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw SpreadsheetError(std::strerror(errno));
    livenessPipe_ = ends[1];
    std::string guard = GuardPath();
    std::string folder = programFolder;
    char* const arguments[] = {guard.data(), folder.data(), pipeName_.data(), nullptr};
    const int failure = Spawn(guard_, arguments, ends[0]);
    close(ends[0]);
    if (failure == 0) return;
    close(livenessPipe_);
    throw SpreadsheetError(guard + " cannot be started: " + std::strerror(failure));
  }
  ~OfficeProcess() {
    close(livenessPipe_);
    while (!ended_ && waitpid(guard_, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  OfficeProcess(const OfficeProcess&) = delete;
  OfficeProcess& operator=(const OfficeProcess&) = delete;

  const std::string& PipeName() const { return pipeName_; }

  /// Whether the office is gone, whatever the reason.
  bool HasEnded() {
    // A host that reaps all children itself leaves us none to ask about.
    if (!ended_) ended_ = waitpid(guard_, nullptr, WNOHANG) != 0;
    return ended_;
  }

  /// Waits for an office that was asked to quit, at most so long.
  void AwaitEnd(std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!HasEnded() && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }

 private:
  std::string pipeName_;
  pid_t guard_ = -1;
  int livenessPipe_ = -1;  // the guard ends the office when this is closed
  bool ended_ = false;
};

OfficeConnection::OfficeConnection(const std::string& programFolder)
    : process_(std::make_unique<OfficeProcess>(programFolder, NewPipeName())),
      context_(LocalContext(programFolder)) {
  const NoPipeSignal inNewThreads;
  try {
    Connect();
  } catch (...) {
    css::uno::Reference<css::lang::XComponent>(context_, css::uno::UNO_QUERY_THROW)->dispose();
    throw;
  }
}

OfficeConnection::~OfficeConnection() {
  desktop_.clear();
  office_.clear();
  try {
    css::uno::Reference<css::lang::XComponent>(context_, css::uno::UNO_QUERY_THROW)->dispose();
  } catch (const css::uno::Exception&) {
    // Nothing more can be done about a context that will not go; the office goes with process_.
  }
}

void OfficeConnection::Connect() {
  const auto resolver = css::bridge::UnoUrlResolver::create(context_);
  const OUString address =
      ToOffice("uno:pipe,name=" + process_->PipeName() + ";urp;StarOffice.ComponentContext");
  const auto deadline = std::chrono::steady_clock::now() + kStartPatience;
  while (!office_.is()) {
    try {
      office_.set(resolver->resolve(address), css::uno::UNO_QUERY_THROW);
    } catch (const css::connection::NoConnectException&) {
      if (process_->HasEnded() || std::chrono::steady_clock::now() > deadline)
        throw SpreadsheetError(process_->HasEnded() ? "it ended at once" : "it does not answer");
      std::this_thread::sleep_for(kRetryPause);
    }
  }
  desktop_ = css::frame::Desktop::create(office_);
}

void OfficeConnection::Quit() {
  try {
    desktop_->terminate();
  } catch (const css::lang::DisposedException&) {
    // It may be gone before it has answered.
  }
  process_->AwaitEnd(kQuitPatience);
}

}  // namespace qv
