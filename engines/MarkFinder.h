#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace qv {

/// A few bytes to look for in a text.
class MarkSet {
 public:
  void Add(char byte);
  bool Contains(char byte) const { return contains_[static_cast<unsigned char>(byte)]; }

  /// The bytes one by one, when they are few enough to compare each with many characters at a time.
  static constexpr std::size_t kFew = 8;
  bool AreFew() const { return count_ <= kFew; }
  std::size_t Count() const { return count_; }
  char operator[](std::size_t rank) const { return bytes_[rank]; }

 private:
  std::array<bool, 256> contains_{};
  std::array<char, kFew> bytes_{};
  std::size_t count_ = 0;
};

/// The instructions that a MarkFinder may use. The widest that the processor has are used unless a test says
/// otherwise.
enum class MarkInstructions { Portable, Sse2, Avx2 };

/// False when the processor does not have them. For tests.
bool UseMarkInstructions(MarkInstructions instructions);

/// Finds the places of a set's bytes in a text. It looks at 64 characters at a time, with the widest
/// instructions that the processor has, some thousand characters ahead of the caller, who is spared a test
/// per character.
class MarkFinder {
 public:
  class Cursor;

  MarkSet& Set() { return set_; }

  /// Sets out at the beginning of a text, which must stay where it is, unchanged, until the next Start().
  void Start(const char* begin, const char* end);

 private:
  static constexpr std::size_t kWindow = 4096;

  bool LookAhead();

  MarkSet set_;
  const char* window_ = nullptr;  // what the places are counted from
  const char* ahead_ = nullptr;   // how far the text has been looked at
  const char* end_ = nullptr;
  const std::uint16_t* next_ = nullptr;
  const std::uint16_t* last_ = nullptr;
  std::array<std::uint16_t, kWindow + 64> places_;  // the last ones may be written past, never read
};

/// Goes from place to place. A short-lived object, so that the compiler can keep what it steps with in
/// registers; the next cursor goes on where this one stopped.
class MarkFinder::Cursor {
 public:
  explicit Cursor(MarkFinder& finder) : finder_(finder) { Load(); }
  ~Cursor() { finder_.next_ = next_; }
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;

  /// The next place, or the text's end.
  const char* Next() {
    while (next_ == last_) {
      if (!finder_.LookAhead()) return finder_.end_;
      Load();
    }
    return window_ + *next_++;
  }

  /// Passes over the next place if it is this one.
  void Skip(const char* place) {
    if (next_ == last_ && finder_.LookAhead()) Load();
    if (next_ != last_ && window_ + *next_ == place) ++next_;
  }

 private:
  void Load() {
    next_ = finder_.next_;
    last_ = finder_.last_;
    window_ = finder_.window_;
  }

  MarkFinder& finder_;
  const std::uint16_t* next_;
  const std::uint16_t* last_;
  const char* window_;
};

}  // namespace qv
