#include "platform/Handlers.h"

#include "platform/FileSystem.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace qv {
namespace {

// The caption is the host's name: the user works with the host.
std::string HostName() {
  std::string name = ProgramPath();
  name.erase(0, name.find_last_of("/\\") + 1);
  return name.substr(0, name.rfind('.'));
}

using GetHandler = _invalid_parameter_handler (*)();

// The handler that the host has set, in its runtime when that is another than ours.
_invalid_parameter_handler HostsHandler() {
  const HMODULE runtime = GetModuleHandleW(L"ucrtbase.dll");
  if (runtime == nullptr) return _get_invalid_parameter_handler();
  const auto get = reinterpret_cast<GetHandler>(
      reinterpret_cast<void*>(GetProcAddress(runtime, "_get_invalid_parameter_handler")));
  const _invalid_parameter_handler handler = get == nullptr ? nullptr : get();
  return handler != nullptr ? handler : _get_invalid_parameter_handler();
}

}  // namespace

// Without an active window of this thread the box stops every window of it instead.
void ShowPlatformMessage(const char* text) {
  const HWND owner = GetActiveWindow();
  MessageBoxA(owner, text, HostName().c_str(), owner != nullptr ? MB_OK : MB_OK | MB_TASKMODAL);
}

void InvalidParameter(const char* what) {
  std::fprintf(stderr, "QVAssemblyFile: invalid parameter: %s\n", what);
  std::fflush(stderr);
  if (const _invalid_parameter_handler handler = HostsHandler()) {
    handler(Widen(what).c_str(), nullptr, nullptr, 0, 0);
  }
  std::abort();
}

}  // namespace qv
