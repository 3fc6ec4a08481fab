#include "platform/Interruption.h"

#include <signal.h>
#include <unistd.h>

#include <cstdlib>

namespace qv {
namespace {

constexpr int kSignals[] = {SIGINT, SIGHUP, SIGTERM};

volatile sig_atomic_t interruption = 0;

// The standard streams repeat a call that a signal interrupts; one on a closed descriptor fails.
void Interrupt(int signal) {
  interruption = signal;
  ::close(STDIN_FILENO);
  ::close(STDOUT_FILENO);
}

}  // namespace

void CatchInterruptions() {
  for (const int signal : kSignals) {
    struct sigaction before {};
    ::sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN) continue;  // as nohup wants it
    struct sigaction action {};
    action.sa_handler = Interrupt;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    ::sigaction(signal, &action, nullptr);
  }
}

void ReleaseInterruptions() {
  for (const int signal : kSignals) {
    struct sigaction now {};
    ::sigaction(signal, nullptr, &now);
    if (now.sa_handler == Interrupt) ::signal(signal, SIG_DFL);
  }
}

bool IsInterrupted() { return interruption != 0; }

int EndInterrupted() {
  ::signal(interruption, SIG_DFL);
  ::raise(interruption);
  return EXIT_FAILURE;
}

}  // namespace qv
