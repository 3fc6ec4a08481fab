#pragma once

#include <windows.h>

#include <objbase.h>

namespace qv {

/// Keeps COM on the thread. A thread that has COM of another kind keeps it, and there is nothing to give
/// back.
class ComScope {
 public:
  ComScope() : active_(SUCCEEDED(CoInitialize(nullptr))) {}
  ~ComScope() {
    if (active_) CoUninitialize();
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;

 private:
  bool active_;
};

}  // namespace qv
