#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

/// Draws values from a fuzzer's bytes; zeros when they have run out.
class ByteSource {
 public:
  ByteSource(const std::uint8_t* data, std::size_t size)
      : at_(reinterpret_cast<const char*>(data)), end_(at_ + size) {}

  unsigned Byte() { return at_ == end_ ? 0u : static_cast<unsigned char>(*at_++); }
  unsigned Below(unsigned limit) { return Byte() % limit; }
  bool Flag() { return (Byte() & 1) != 0; }

  /// Characters up to a 0xFF byte, or the rest.
  std::string Text() {
    const char* const stop = std::find(at_, end_, '\xFF');
    std::string text(at_, stop);
    at_ = stop == end_ ? end_ : stop + 1;
    return text;
  }

  std::string Rest() {
    std::string rest(at_, end_);
    at_ = end_;
    return rest;
  }

  bool IsEmpty() const { return at_ == end_; }

 private:
  const char* at_;
  const char* end_;
};

/// Ends the run when something that must hold does not.
inline void Require(bool holds) {
  if (!holds) __builtin_trap();
}
