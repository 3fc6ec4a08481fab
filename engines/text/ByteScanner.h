#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace qv {

/// A set of bytes to scan a text for.
class ByteSet {
 public:
  void Add(char byte);
  bool Contains(char byte) const { return contains_[static_cast<unsigned char>(byte)]; }

  /// The bytes one by one, when there are few enough to compare each by SIMD.
  static constexpr std::size_t kFew = 8;
  bool AreFew() const { return count_ <= kFew; }
  std::size_t Count() const { return count_; }
  char operator[](std::size_t index) const { return bytes_[index]; }

 private:
  std::array<bool, 256> contains_{};
  std::array<char, kFew> bytes_{};
  std::size_t count_ = 0;
};

/// The SIMD instructions that a ByteScanner may use; the widest that the processor has, unless a test says
/// otherwise.
enum class SimdLevel { Portable, Sse2, Avx2 };

/// False when the processor does not have them. For tests.
bool UseSimdLevel(SimdLevel level);

/// Finds the positions of a set's bytes in a text: 64 bytes at a time by SIMD, in windows of some thousand
/// bytes ahead of the caller, who need not test each byte.
class ByteScanner {
 public:
  class Cursor;

  ByteSet& Set() { return set_; }

  /// Starts at the beginning of a text, which must stay where it is, unchanged, until the next Start().
  void Start(const char* begin, const char* end);

 private:
  static constexpr std::size_t kWindow = 4096;

  bool ScanWindow();

  ByteSet set_;
  const char* window_ = nullptr;   // what the positions are counted from
  const char* scanned_ = nullptr;  // the end of what has been scanned
  const char* end_ = nullptr;
  const std::uint16_t* next_ = nullptr;
  const std::uint16_t* last_ = nullptr;
  std::array<std::uint16_t, kWindow + 64> positions_;  // the last ones may be written past, never read
};

/// Goes from position to position. A short-lived object, so that the compiler can keep its members in
/// registers; the next cursor goes on where this one stopped.
class ByteScanner::Cursor {
 public:
  explicit Cursor(ByteScanner& scanner) : scanner_(scanner) { Load(); }
  ~Cursor() { scanner_.next_ = next_; }
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;

  /// The next position, or the text's end.
  const char* Next() {
    while (next_ == last_) {
      if (!scanner_.ScanWindow()) return scanner_.end_;
      Load();
    }
    return window_ + *next_++;
  }

  /// Skips the next position if it is this one.
  void Skip(const char* position) {
    if (next_ == last_ && scanner_.ScanWindow()) Load();
    if (next_ != last_ && window_ + *next_ == position) ++next_;
  }

 private:
  void Load() {
    next_ = scanner_.next_;
    last_ = scanner_.last_;
    window_ = scanner_.window_;
  }

  ByteScanner& scanner_;
  const std::uint16_t* next_;
  const std::uint16_t* last_;
  const char* window_;
};

}  // namespace qv
