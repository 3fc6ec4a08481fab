#pragma once

#include <QVAssemblyFile/CopyShort.h>
#include <QVAssemblyFile/Export.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace qv {

/// Text in a buffer of its own, of at most Capacity - 1 characters, always terminated. Only the bytes of the
/// text are ever written, and those after the terminator stay uninitialised, as records hold dozens of these.
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

  /// The buffer of Capacity characters; those after the terminator are uninitialised.
  const char* Characters() const { return text_; }

 private:
  char text_[Capacity];
};

}  // namespace qv

/// What a getter of texts gives, without a buffer of the caller's: Text(part, &PartInformation::GetPartName).
/// For all classes that have a kTextSize. Throws std::bad_alloc.
template <class Object, class Class>
std::string Text(Object& object, void (Class::*getter)(char* buffer)) {
  char buffer[Class::kTextSize] = "";
  (object.*getter)(buffer);
  return buffer;
}

/// The same for a getter that is asked by index: Text(manager, &CAssemblyFileMgr::GetHeaderAtRank, 0).
template <class Object, class Class>
std::string Text(Object& object, void (Class::*getter)(int rank, char* buffer), int rank) {
  char buffer[Class::kTextSize] = "";
  (object.*getter)(rank, buffer);
  return buffer;
}
