#include "platform/FileSystem.h"
#include "platform/Handlers.h"

#include <windows.h>

#include <string>

namespace qv {
namespace {

// The caption is the host's name: the user works with the host.
std::string HostName() {
  std::string name = ProgramPath();
  name.erase(0, name.find_last_of("/\\") + 1);
  return name.substr(0, name.rfind('.'));
}

}  // namespace

// Without an active window of this thread the box stops every window of it instead.
void ShowPlatformMessage(const char* text) {
  const HWND owner = GetActiveWindow();
  MessageBoxA(owner, text, HostName().c_str(), owner != nullptr ? MB_OK : MB_OK | MB_TASKMODAL);
}

}  // namespace qv
