#pragma once

#include <iconv.h>

#include <string>
#include <string_view>

namespace qv {

/// A conversion between two encodings that the system knows.
class Iconv {
 public:
  Iconv(const std::string& to, const std::string& from);
  ~Iconv();
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;

  bool IsOpen() const;

  /// Converts from the front of `text`, taking off what it has converted, and appends to `out`. False when
  /// `text` then starts with something that does not convert.
  bool Convert(std::string_view& text, std::string& out);

  /// Appends what a stateful encoding needs at its end.
  void Finish(std::string& out);

 private:
  iconv_t handle_;
};

}  // namespace qv
