#include "platform/Interruption.h"

#include <windows.h>

#include <atomic>
#include <cstdlib>

namespace qv {
namespace {

constexpr DWORD kPatience =
    4000;  // milliseconds; the system ends a closed console's programs after 5 seconds

std::atomic<bool> isInterrupted = false;

// Runs in a thread of its own. When it returns for a console that is closed, the system ends the process.
BOOL WINAPI Interrupt(DWORD event) {
  if (isInterrupted.exchange(true)) return FALSE;
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(kPatience);
  return TRUE;
}

}  // namespace

void CatchInterruptions() { SetConsoleCtrlHandler(Interrupt, TRUE); }
void ReleaseInterruptions() { SetConsoleCtrlHandler(Interrupt, FALSE); }
bool IsInterrupted() { return isInterrupted; }
int EndInterrupted() { return EXIT_FAILURE; }

}  // namespace qv
