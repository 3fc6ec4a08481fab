#include "engines/text/ByteScanner.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace qv {
namespace {

constexpr std::size_t kWidth = 64;  // bytes at a time: a bit of a word for each
constexpr int kUnrolled = 12;

/// Stores the positions of the bits that are set. Few words have more than a dozen of them, so twelve are
/// stored whatever their number is: a branch misprediction costs more than the stores.
inline std::uint16_t* StorePositions(std::uint64_t bits, std::size_t base, std::uint16_t* out) {
  const int count = std::popcount(bits);
  for (int stored = 0; stored < count; stored += kUnrolled)
    for (int bit = 0; bit < kUnrolled; ++bit) {
      out[stored + bit] = static_cast<std::uint16_t>(base + static_cast<std::size_t>(std::countr_zero(bits)));
      bits &= bits - 1;
    }
  return out + count;
}

using BitsOf64 = std::uint64_t (*)(const char*, const ByteSet&);

/// Scans a whole text by one of the functions for 64 bytes. Inlined, as only then is it compiled for the
/// caller's SIMD instructions.
template <BitsOf64 Bits>
[[gnu::always_inline]] inline std::size_t FindWith(const char* text, std::size_t size, const ByteSet& set,
                                                   std::uint16_t* const begin) {
  std::uint16_t* out = begin;
  std::size_t base = 0;
  for (; base + kWidth <= size; base += kWidth) out = StorePositions(Bits(text + base, set), base, out);
  if (base < size) {
    char tail[kWidth] = {};
    std::memcpy(tail, text + base, size - base);
    const std::uint64_t inside = (std::uint64_t{1} << (size - base)) - 1;
    out = StorePositions(Bits(tail, set) & inside, base, out);
  }
  return static_cast<std::size_t>(out - begin);
}

inline std::uint64_t BitsOneByOne(const char* text, const ByteSet& set) {
  std::uint64_t bits = 0;
  for (std::size_t bit = 0; bit < kWidth; ++bit) bits |= std::uint64_t{set.Contains(text[bit])} << bit;
  return bits;
}

std::size_t FindOneByOne(const char* text, std::size_t size, const ByteSet& set, std::uint16_t* out) {
  return FindWith<BitsOneByOne>(text, size, set, out);
}

#if defined(__x86_64__)

inline std::uint64_t BitsBySse2(const char* text, const ByteSet& set) {
  std::uint64_t bits = 0;
  for (std::size_t part = 0; part < kWidth; part += 16) {
    const __m128i characters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + part));
    __m128i hits = _mm_setzero_si128();
    for (std::size_t index = 0; index < set.Count(); ++index)
      hits = _mm_or_si128(hits, _mm_cmpeq_epi8(characters, _mm_set1_epi8(set[index])));
    bits |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(hits))} << part;
  }
  return bits;
}

std::size_t FindBySse2(const char* text, std::size_t size, const ByteSet& set, std::uint16_t* out) {
  return FindWith<BitsBySse2>(text, size, set, out);
}

#define QV_AVX2 __attribute__((target("avx2,bmi,lzcnt,popcnt")))

QV_AVX2 inline std::uint64_t BitsByAvx2(const char* text, const ByteSet& set) {
  const __m256i low = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text));
  const __m256i high = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + 32));
  __m256i lowHits = _mm256_setzero_si256();
  __m256i highHits = _mm256_setzero_si256();
  for (std::size_t index = 0; index < set.Count(); ++index) {
    const __m256i sought = _mm256_set1_epi8(set[index]);
    lowHits = _mm256_or_si256(lowHits, _mm256_cmpeq_epi8(low, sought));
    highHits = _mm256_or_si256(highHits, _mm256_cmpeq_epi8(high, sought));
  }
  return std::uint64_t{static_cast<std::uint32_t>(_mm256_movemask_epi8(highHits))} << 32 |
         static_cast<std::uint32_t>(_mm256_movemask_epi8(lowHits));
}

QV_AVX2 std::size_t FindByAvx2(const char* text, std::size_t size, const ByteSet& set, std::uint16_t* out) {
  return FindWith<BitsByAvx2>(text, size, set, out);
}

#endif

using Find = std::size_t (*)(const char*, std::size_t, const ByteSet&, std::uint16_t*);

// Null when the processor does not have the instructions.
Find FindBy(SimdLevel level) {
#if defined(__x86_64__)
  if (level == SimdLevel::Sse2) return FindBySse2;
  if (level == SimdLevel::Avx2)
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") ? FindByAvx2 : nullptr;
#endif
  return level == SimdLevel::Portable ? FindOneByOne : nullptr;
}

Find BestFind() {
  for (const SimdLevel wide : {SimdLevel::Avx2, SimdLevel::Sse2})
    if (const Find find = FindBy(wide)) return find;
  return FindOneByOne;
}

/// For sets of few bytes; the others are scanned one by one.
Find& FindForFew() {
  static Find find = BestFind();
  return find;
}

}  // namespace

bool UseSimdLevel(SimdLevel level) {
  const Find find = FindBy(level);
  if (find != nullptr) FindForFew() = find;
  return find != nullptr;
}

void ByteSet::Add(char byte) {
  bool& contained = contains_[static_cast<unsigned char>(byte)];
  if (contained) return;
  contained = true;
  if (count_ < kFew) bytes_[count_] = byte;
  ++count_;
}

void ByteScanner::Start(const char* begin, const char* end) {
  window_ = scanned_ = begin;
  end_ = end;
  next_ = last_ = positions_.data();
}

// False at the text's end.
bool ByteScanner::ScanWindow() {
  const Find find = set_.AreFew() ? FindForFew() : FindOneByOne;
  const std::size_t size = std::min(kWindow, static_cast<std::size_t>(end_ - scanned_));
  window_ = scanned_;
  scanned_ += size;
  next_ = positions_.data();
  last_ = next_ + find(window_, size, set_, positions_.data());
  return size > 0;
}

}  // namespace qv
