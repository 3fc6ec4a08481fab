#include "platform/spreadsheet/calc/OfficeConnection.h"

#include "platform/spreadsheet/calc/Office.h"

#include <unistd.h>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>

#include <atomic>
#include <csignal>
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

}  // namespace

OfficeConnection::OfficeConnection(const std::string& programFolder)
    : process_(programFolder, NewPipeName()), context_(LocalContext(programFolder)) {
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
      ToOffice("uno:pipe,name=" + process_.PipeName() + ";urp;StarOffice.ComponentContext");
  const auto deadline = std::chrono::steady_clock::now() + kStartPatience;
  while (!office_.is()) {
    try {
      office_.set(resolver->resolve(address), css::uno::UNO_QUERY_THROW);
    } catch (const css::connection::NoConnectException&) {
      if (process_.HasEnded() || std::chrono::steady_clock::now() > deadline)
        throw SpreadsheetError(process_.HasEnded() ? "it ended at once" : "it does not answer");
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
  process_.AwaitEnd(kQuitPatience);
}

}  // namespace qv
