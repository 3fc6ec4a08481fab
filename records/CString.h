#pragma once

/// A build inside the host's framework names the header of the framework's string class here and uses that
/// class instead. Its CString must be the single-byte one.
#if defined(QVASSEMBLY_FRAMEWORK_STRING_HEADER)
#include QVASSEMBLY_FRAMEWORK_STRING_HEADER
#else

#include <QVAssemblyFile/CopyShort.h>
#include <QVAssemblyFile/Export.h>

#include <compare>
#include <cstddef>
#include <cstring>
#include <string_view>

/// Single-byte text of any length, passed by value: copies share the characters until one of them changes.
///
/// Texts of up to 15 characters lie inside the object. A null pointer counts as an empty text. Positions
/// outside the text read as NUL and are not written. Comparison is by byte; letters are those of ASCII. Only
/// std::bad_alloc is thrown, and leaves the text as it was. One object belongs to one thread at a time, but
/// copies of it may be used and destroyed by others.
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
  CString(const char* text, int length);  ///< a negative length counts as 0
  CString(std::string_view text);
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
  CString& operator=(const char* text) { return *this = CString(text); }
  CString& operator=(std::string_view text) {
    if (IsLong() || text.size() > kShortCapacity) return *this = CString(text);
    // It may be a part of ours: CopyShort() has read a text of this size before it writes.
    qv::CopyShort(bytes_, text.data(), text.size());
    SetShortLength(text.size());
    return *this;
  }

  int GetLength() const noexcept { return static_cast<int>(Length()); }
  bool IsEmpty() const noexcept { return Length() == 0; }
  void Empty() noexcept { CString().Swap(*this); }

  /// Terminated, never null; valid until the object changes or ends.
  const char* GetString() const noexcept { return IsLong() ? LongText() : bytes_; }
  operator const char*() const noexcept { return GetString(); }

  char GetAt(int position) const noexcept;
  char operator[](int position) const noexcept { return GetAt(position); }
  void SetAt(int position, char character);

  CString& operator+=(const CString& text) { return Append(text.View()); }
  CString& operator+=(const char* text) { return Append(ViewOf(text)); }
  CString& operator+=(std::string_view text) { return Append(text); }
  CString& operator+=(char character) { return Append({&character, 1}); }

  friend CString operator+(const CString& a, const CString& b) { return Joined(a.View(), b.View()); }
  friend CString operator+(const CString& a, const char* b) { return Joined(a.View(), ViewOf(b)); }
  friend CString operator+(const char* a, const CString& b) { return Joined(ViewOf(a), b.View()); }
  friend CString operator+(const CString& a, char b) { return Joined(a.View(), {&b, 1}); }

  friend bool operator==(const CString& a, const CString& b) noexcept { return a.View() == b.View(); }
  friend bool operator==(const CString& a, const char* b) noexcept { return a.View() == ViewOf(b); }
  friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept {
    return a.View() <=> b.View();
  }
  friend std::strong_ordering operator<=>(const CString& a, const char* b) noexcept {
    return a.View() <=> ViewOf(b);
  }

  /// Negative, 0 or positive.
  int Compare(const char* text) const noexcept { return View().compare(ViewOf(text)); }
  int CompareNoCase(const char* text) const noexcept;

  /// Parts of the text; a count or position outside is drawn to its ends.
  CString Left(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString Right(int count) const;

  /// The position of the first find at or after `start`, or -1.
  int Find(char character, int start = 0) const noexcept;
  int Find(const char* text, int start = 0) const noexcept;
  int ReverseFind(char character) const noexcept;

  /// Remove white space.
  CString& TrimLeft();
  CString& TrimRight();
  CString& Trim();

  CString& MakeUpper();
  CString& MakeLower();

 private:
  static constexpr std::size_t kShortCapacity = 15;
  static constexpr char kLongTag = '\x7f';

  static std::string_view ViewOf(const char* text) noexcept {
    return text == nullptr ? std::string_view() : std::string_view(text);
  }
  static CString Joined(std::string_view a, std::string_view b);
  static CString WithCapacity(std::size_t capacity);

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

  CString& Append(std::string_view text);
  char* OwnText();
  void SetLength(std::size_t length) noexcept;
  CString Part(std::size_t first, std::size_t count) const;

  // A short text, or the pointer to a shared buffer; the last byte tells which.
  alignas(void*) char bytes_[kShortCapacity + 1];
};

#endif
