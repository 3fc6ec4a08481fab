#include "platform/InvalidParameter.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace qv {
namespace {

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

void InvalidParameter(const char* what) {
  std::fprintf(stderr, "QVAssemblyFile: invalid parameter: %s\n", what);
  std::fflush(stderr);
  if (const _invalid_parameter_handler handler = HostsHandler()) {
    handler(Widen(what).c_str(), nullptr, nullptr, 0, 0);
  }
  std::abort();
}

}  // namespace qv
