#pragma once

#include <windows.h>

#include <utility>

namespace qv {

/// Owns a kernel object's handle.
class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() { Close(); }

  HANDLE Get() const { return handle_; }
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }

  /// False when the system refuses; the handle is gone either way.
  bool Close() { return !IsOpen() || CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != FALSE; }

 private:
  HANDLE handle_;
};

}  // namespace qv
