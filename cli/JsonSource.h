#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <vector>

namespace qv {

/// Hands out the bytes of a JSON input one by one and counts its lines.
class JsonSource {
 public:
  /// Fills a buffer as OpenFile::Read() does.
  using Read = std::function<std::ptrdiff_t(char* buffer, std::size_t capacity)>;

  explicit JsonSource(Read read);

  bool AtEnd();
  char Peek() { return AtEnd() ? '\0' : block_[at_]; }
  void Next();

  /// The 1-based line of the byte last taken.
  std::int64_t Line() const { return line_; }
  bool HasFailed() const { return failed_; }

  /// What the JSON parser takes its input from. All copies advance together.
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = char;

    explicit Iterator(JsonSource* source = nullptr) : source_(source) {}
    char operator*() const { return source_->Peek(); }
    Iterator& operator++() {
      source_->Next();
      return *this;
    }
    Iterator operator++(int) { return ++*this; }
    /// Whether there is more; the other one is always the end.
    bool operator!=(const Iterator&) const { return !source_->AtEnd(); }
    bool operator==(const Iterator& other) const { return !(*this != other); }

   private:
    JsonSource* source_;
  };

 private:
  Read read_;
  std::vector<char> block_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  std::int64_t line_ = 1;
  bool tookLineEnd_ = false;  // the next byte starts a line
  bool finished_ = false;
  bool failed_ = false;
};

}  // namespace qv
