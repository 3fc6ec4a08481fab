#pragma once

#include <QVAssemblyFile/CopyShort.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

  /// Puts a comma in the place of the first point from `start` on, if there is one.
  void PutComma(std::size_t start) {
    char* const point = std::find(storage_.data() + start, end_, '.');
    if (point != end_) *point = ',';
  }

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

/// As "%d".
void AppendInt(TextBuffer& out, std::int64_t value);

/// As "%.<decimals>f", correctly rounded. At most 9 decimals.
void AppendFixed(TextBuffer& out, double value, int decimals);

/// How many characters CopyTerminated() may read and write, however short the text is.
inline constexpr std::size_t kReadAtLeast = 32;

/// Copies a text without its NUL and returns the end of the copy. SIMD looks for the NUL of a short text
/// while copying, 16 bytes at a time, so that it takes no calls.
inline char* CopyTerminated(char* to, const char* from) {
#if defined(__SSE2__)
  constexpr std::size_t kVector = 16;
  for (std::size_t copied = 0; copied < kReadAtLeast; copied += kVector) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + copied));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + copied), bytes);
    const auto ends = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128())));
    if (ends != 0) return to + copied + std::countr_zero(ends);
  }
#endif
  const std::size_t size = std::strlen(from);
  return std::copy_n(from, size, to);
}

}  // namespace qv
