#pragma once

#include <QVAssemblyFile/CopyShort.h>
#include <QVAssemblyFile/Export.h>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace qv {

/// Text in a buffer of its own, of at most Capacity - 1 characters, always terminated. Only the bytes of the
/// text are ever written; what lies behind the terminator is left as it is, for records hold dozens of these.
template <std::size_t Capacity>
class QVASSEMBLY_API FixedText {
 public:
  FixedText() { text_[0] = '\0'; }

  /// Keeps the first Capacity - 1 characters. Null changes nothing.
  void Set(const char* text) {
    if (text != nullptr) Assign(std::string_view(text, ::strnlen(text, Capacity - 1)));
  }

  /// Keeps the characters up to the first NUL, Capacity - 1 at most. Returns false when the text was cut for
  /// length.
  bool Assign(std::string_view text) {
    const std::size_t length = text.size() < Capacity ? text.size() : Capacity - 1;
    CopyShort(text_, text.data(), length);
    text_[length] = '\0';
    return length == text.size();
  }

  /// Copies the text into a buffer of Capacity bytes and sets its last byte to NUL. Null changes nothing.
  void Get(char* buffer) const {
    if (buffer == nullptr) return;
    const std::string_view text = View();
    std::memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = '\0';
    buffer[Capacity - 1] = '\0';
  }

  std::string_view View() const { return {text_, std::strlen(text_)}; }

  /// The buffer of Capacity characters; those behind the terminator are whatever they are.
  const char* Characters() const { return text_; }

 private:
  char text_[Capacity];
};

}  // namespace qv
