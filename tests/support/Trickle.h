#pragma once

#include "platform/FileSystem.h"

#include <algorithm>
#include <string>

/// A file that hands out a text a few bytes at a time and may fail at its end.
class Trickle : public qv::OpenFile {
 public:
  Trickle(std::string text, std::size_t step, bool fails = false)
      : text_(std::move(text)), step_(step), fails_(fails) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = std::min({step_, capacity, text_.size() - at_});
    if (count == 0 && fails_) return -1;
    std::copy_n(text_.data() + at_, count, buffer);
    at_ += count;
    return static_cast<std::ptrdiff_t>(count);
  }
  bool Write(std::string_view) override { return false; }
  bool Flush() override { return false; }
  bool Close() override { return true; }

 private:
  std::string text_;
  std::size_t step_;
  bool fails_;
  std::size_t at_ = 0;
};
