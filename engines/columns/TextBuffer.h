#pragma once

#include <QVAssemblyFile/CopyShort.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace qv {

/// A text that grows at its end, for what is written cell by cell: whoever knows how long a cell may get asks
/// for the room once and puts the characters there, without a call.
class TextBuffer {
 public:
  TextBuffer() = default;
  TextBuffer(const TextBuffer&) = delete;
  TextBuffer& operator=(const TextBuffer&) = delete;

  std::size_t Size() const { return static_cast<std::size_t>(end_ - storage_.data()); }
  std::string_view View() const { return {storage_.data(), Size()}; }
  void Clear() { end_ = storage_.data(); }

  /// Where the next characters go; there is room for `size` of them.
  char* Room(std::size_t size) {
    if (size > static_cast<std::size_t>(storage_.data() + storage_.size() - end_)) MakeRoom(size);
    return end_;
  }

  /// What was put into the room up to here is text now.
  void EndAt(char* end) { end_ = end; }

  TextBuffer& operator+=(std::string_view text) {
    char* const room = Room(text.size());
    CopyShort(room, text.data(), text.size());
    end_ = room + text.size();
    return *this;
  }

  TextBuffer& operator+=(char character) {
    *Room(1) = character;
    ++end_;
    return *this;
  }

 private:
  [[gnu::noinline]] void MakeRoom(std::size_t size) {
    const std::size_t used = Size();
    storage_.resize(std::max(used + size, 2 * storage_.size()));
    end_ = storage_.data() + used;
  }

  std::vector<char> storage_;
  char* end_ = storage_.data();
};

}  // namespace qv
