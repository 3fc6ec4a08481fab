#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace qv {

/// How many characters CopyTerminated() may read and write, however short the text is.
inline constexpr std::size_t kReadAtLeast = 32;

/// Copies a text without its NUL and returns the end of the copy. Short texts are looked for their end while
/// they are copied, a piece at a time, so that copying one takes no calls.
inline char* CopyTerminated(char* to, const char* from) {
#if defined(__SSE2__)
  constexpr std::size_t kPiece = 16;
  for (std::size_t copied = 0; copied < kReadAtLeast; copied += kPiece) {
    const __m128i piece = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + copied));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + copied), piece);
    const auto ends = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(piece, _mm_setzero_si128())));
    if (ends != 0) return to + copied + std::countr_zero(ends);
  }
#endif
  const std::size_t size = std::strlen(from);
  return std::copy_n(from, size, to);
}

}  // namespace qv
