#include <QVAssemblyFile/CString.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <limits>
#include <new>

// The characters and their terminator follow the buffer's head. They never change, as any number of texts may
// share them.
struct CString::Buffer {
  std::atomic<std::uint32_t> owners{1};
  std::uint32_t length;

  char* Text() { return reinterpret_cast<char*>(this + 1); }

  static Buffer* Create(std::string_view a, std::string_view b) {
    const std::size_t length = a.size() + b.size();
    if (length > std::numeric_limits<int>::max()) throw std::bad_alloc();  // GetLength() gives an int
    auto* const buffer = new (::operator new(sizeof(Buffer) + length + 1)) Buffer;
    buffer->length = static_cast<std::uint32_t>(length);
    *std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), buffer->Text())) = '\0';
    return buffer;
  }
};

CString::Buffer* CString::LongBuffer() const noexcept {
  Buffer* buffer;
  std::memcpy(&buffer, bytes_, sizeof buffer);
  return buffer;
}

const char* CString::LongText() const noexcept { return LongBuffer()->Text(); }
std::size_t CString::LongLength() const noexcept { return LongBuffer()->length; }

void CString::Retain() const noexcept { LongBuffer()->owners.fetch_add(1, std::memory_order_relaxed); }

void CString::Release() const noexcept {
  Buffer* buffer = LongBuffer();
  if (buffer->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) ::operator delete(buffer);
}

CString::CString(std::string_view a, std::string_view b) {
  if (a.size() + b.size() <= kShortCapacity) {
    std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), bytes_));
    SetShortLength(a.size() + b.size());
    return;
  }
  Buffer* const buffer = Buffer::Create(a, b);
  std::memcpy(bytes_, &buffer, sizeof buffer);
  bytes_[kShortCapacity] = kLongTag;
}
