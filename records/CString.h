#pragma once

#include <QVAssemblyFile/CopyShort.h>
#include <QVAssemblyFile/Export.h>

#include <cstddef>
#include <cstring>
#include <string_view>

/// Single-byte text of any length, passed by value: copies share the characters, which never change.
///
/// Texts of up to 15 characters lie inside the object. A null pointer counts as an empty text. Comparison is
/// by byte. Only std::bad_alloc is thrown, and leaves the text as it was. One object belongs to one thread at
/// a time, but copies of it may be used and destroyed by others.
class QVASSEMBLY_API CString {
 public:
  CString() noexcept { SetShortLength(0); }
  CString(const CString& other) noexcept {
    CopyBytes(other);
    if (IsLong()) Retain();
  }
  CString(CString&& other) noexcept {
    CopyBytes(other);
    other.SetShortLength(0);
  }
  CString(const char* text) : CString(ViewOf(text)) {}
  CString(std::string_view text) : CString(text, {}) {}
  ~CString() {
    if (IsLong()) Release();
  }

  CString& operator=(const CString& other) noexcept {
    CString copy(other);
    Swap(copy);
    return *this;
  }
  CString& operator=(CString&& other) noexcept {
    CString taken(static_cast<CString&&>(other));
    Swap(taken);
    return *this;
  }
  CString& operator=(const char* text) { return *this = ViewOf(text); }
  CString& operator=(std::string_view text) {
    if (IsLong() || text.size() > kShortCapacity) return *this = CString(text);
    // It may be a part of ours: CopyShort() has read a text of this size before it writes.
    qv::CopyShort(bytes_, text.data(), text.size());
    SetShortLength(text.size());
    return *this;
  }

  int GetLength() const noexcept { return static_cast<int>(Length()); }
  bool IsEmpty() const noexcept { return Length() == 0; }

  /// Terminated, never null; valid until the object changes or ends.
  const char* GetString() const noexcept { return IsLong() ? LongText() : bytes_; }
  operator const char*() const noexcept { return GetString(); }

  CString& operator+=(const CString& text) { return *this = CString(View(), text.View()); }
  CString& operator+=(const char* text) { return *this = CString(View(), ViewOf(text)); }

  friend bool operator==(const CString& a, const CString& b) noexcept { return a.View() == b.View(); }
  friend bool operator==(const CString& a, const char* b) noexcept { return a.View() == ViewOf(b); }

 private:
  static constexpr std::size_t kShortCapacity = 15;
  static constexpr char kLongTag = '\x7f';

  /// One text after the other.
  CString(std::string_view a, std::string_view b);

  static std::string_view ViewOf(const char* text) noexcept {
    return text == nullptr ? std::string_view() : std::string_view(text);
  }

  bool IsLong() const noexcept { return bytes_[kShortCapacity] == kLongTag; }
  std::size_t Length() const noexcept {
    return IsLong() ? LongLength() : kShortCapacity - static_cast<std::size_t>(bytes_[kShortCapacity]);
  }
  std::string_view View() const noexcept { return {GetString(), Length()}; }

  // The last byte counts the free characters, and so ends a text of 15 as its NUL.
  void SetShortLength(std::size_t length) noexcept {
    bytes_[length] = '\0';
    bytes_[kShortCapacity] = static_cast<char>(kShortCapacity - length);
  }
  void CopyBytes(const CString& other) noexcept { std::memcpy(bytes_, other.bytes_, sizeof bytes_); }
  void Swap(CString& other) noexcept {
    char kept[sizeof bytes_];
    std::memcpy(kept, bytes_, sizeof bytes_);
    CopyBytes(other);
    std::memcpy(other.bytes_, kept, sizeof bytes_);
  }

  struct Buffer;
  Buffer* LongBuffer() const noexcept;
  const char* LongText() const noexcept;
  std::size_t LongLength() const noexcept;
  void Retain() const noexcept;
  void Release() const noexcept;

  // A short text, or the pointer to a shared buffer; the last byte tells which.
  alignas(void*) char bytes_[kShortCapacity + 1];
};
