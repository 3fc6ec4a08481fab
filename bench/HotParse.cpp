#include "HotParse.h"

#include <fcntl.h>
#include <immintrin.h>
#include <unistd.h>

#include <bit>
#include <charconv>
#include <cstring>
#include <vector>

namespace bench {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;
constexpr std::size_t kPadding = 64;

__attribute__((target("avx2"))) inline std::uint64_t Separators(const char* at, char delimiter) {
  const __m256i comma = _mm256_set1_epi8(delimiter);
  const __m256i quote = _mm256_set1_epi8('"');
  const __m256i end = _mm256_set1_epi8('\n');
  std::uint64_t bits = 0;
  for (int half = 0; half < 2; ++half) {
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at + 32 * half));
    const __m256i hit =
        _mm256_or_si256(_mm256_or_si256(_mm256_cmpeq_epi8(bytes, comma), _mm256_cmpeq_epi8(bytes, quote)),
                        _mm256_cmpeq_epi8(bytes, end));
    bits |= std::uint64_t{static_cast<std::uint32_t>(_mm256_movemask_epi8(hit))} << (32 * half);
  }
  return bits;
}

class Converter {
 public:
  explicit Converter(PlainPart& record) : record_(record), places_(PlacesOfParts()) {}

  void Take(std::size_t column, const char* from, const char* to) {
    const Place place = places_[column];
    if (place.type == Type::Text) {
      const auto size = static_cast<std::size_t>(to - from);
      std::memcpy(record_.texts[place.index], from, size);
      record_.texts[place.index][size] = '\0';
    } else if (place.type == Type::Int) {
      std::from_chars(from, to, record_.ints[place.index]);
    } else {
      std::from_chars(from, to, record_.reals[place.index]);
    }
  }

 private:
  PlainPart& record_;
  const std::array<Place, 32> places_;
};

/// Converts the whole rows of a text; returns the end of the last one.
__attribute__((target("avx2"))) const char* ConvertRows(const char* begin, const char* end,
                                                        Converter& converter, std::size_t& rows) {
  const char* field = begin;
  const char* rowEnd = begin;
  std::size_t column = 0;
  bool inside = false;
  for (const char* base = begin; base < end; base += 64) {
    std::uint64_t bits = Separators(base, ',');
    if (end - base < 64) bits &= (std::uint64_t{1} << (end - base)) - 1;
    for (; bits != 0; bits &= bits - 1) {
      const char* const at = base + std::countr_zero(bits);
      if (*at == '"') {
        inside = !inside;
        continue;
      }
      if (inside) continue;
      const bool quoted = *field == '"';
      converter.Take(column++, field + quoted, at - quoted);
      field = at + 1;
      if (*at != '\n') continue;
      rowEnd = field;
      column = 0;
      ++rows;
    }
  }
  return rowEnd;
}

}  // namespace

std::size_t ParseIntoOneRecord(const std::string& path, PlainPart& record) {
  Converter converter(record);
  std::vector<char> block(kBlock + kPadding);
  std::size_t rows = 0, kept = 0;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  for (;;) {
    const ssize_t count = ::read(file, block.data() + kept, kBlock - kept);
    if (count <= 0) break;
    const char* const end = block.data() + kept + count;
    const char* const done = ConvertRows(block.data(), end, converter, rows);
    kept = static_cast<std::size_t>(end - done);
    std::memmove(block.data(), done, kept);
  }
  ::close(file);
  return rows;
}

__attribute__((target("avx2"))) std::size_t FindSeparators(const std::string& text, char delimiter,
                                                           std::vector<std::uint32_t>& positions) {
  std::uint32_t* out = positions.data();
  const std::size_t whole = text.size() / 64 * 64;
  for (std::size_t base = 0; base < whole; base += 64)
    for (std::uint64_t bits = Separators(text.data() + base, delimiter); bits != 0; bits &= bits - 1)
      *out++ = static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(std::countr_zero(bits));
  return static_cast<std::size_t>(out - positions.data());
}

}  // namespace bench
