#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace qv {

/// The system's words for an error number, for a person.
inline std::string SystemReason(int error) { return std::generic_category().message(error); }

/// Owns an open file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int descriptor = -1) : descriptor_(descriptor) {}
  Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~Descriptor() { Close(); }

  int Get() const { return descriptor_; }
  bool IsOpen() const { return descriptor_ >= 0; }

  /// The error number of a failed close, else 0. The descriptor is gone either way.
  int Close() {
    if (!IsOpen()) return 0;
    const int result = ::close(std::exchange(descriptor_, -1));
    return result != 0 && errno != EINTR ? errno : 0;
  }

 private:
  int descriptor_;
};

}  // namespace qv
