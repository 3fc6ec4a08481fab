#include <QVAssemblyFile/CString.h>

#include <QVAssemblyFile/CopyShort.h>

#if !defined(QVASSEMBLY_FRAMEWORK_STRING_HEADER)

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <limits>
#include <new>

namespace {

// GetLength() gives an int.
constexpr std::size_t kLongest = std::numeric_limits<int>::max();

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::size_t Clamped(int value, std::size_t most) {
  return value < 0 ? 0 : std::min(static_cast<std::size_t>(value), most);
}

int Position(std::size_t found) { return found == std::string_view::npos ? -1 : static_cast<int>(found); }

std::string_view Bytes(const char* text, int length) {
  return text == nullptr ? std::string_view() : std::string_view(text, Clamped(length, kLongest));
}

}  // namespace

// The characters and their terminator follow the buffer's head.
struct CString::Buffer {
  std::atomic<std::uint32_t> owners{1};
  std::uint32_t length = 0;
  std::uint32_t capacity = 0;

  char* Text() { return reinterpret_cast<char*>(this + 1); }

  static Buffer* Create(std::size_t capacity) {
    if (capacity > kLongest) throw std::bad_alloc();
    Buffer* buffer = new (::operator new(sizeof(Buffer) + capacity + 1)) Buffer;
    buffer->capacity = static_cast<std::uint32_t>(capacity);
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

CString::CString(const char* text, int length) : CString(Bytes(text, length)) {}

CString::CString(std::string_view text) {
  if (text.size() > kShortCapacity) {
    new (this) CString(Joined(text, {}));
    return;
  }
  qv::CopyShort(bytes_, text.data(), text.size());
  SetShortLength(text.size());
}

// An empty text whose OwnText() has room for `capacity` characters.
CString CString::WithCapacity(std::size_t capacity) {
  CString result;
  if (capacity <= kShortCapacity) return result;
  Buffer* buffer = Buffer::Create(capacity);
  std::memcpy(result.bytes_, &buffer, sizeof buffer);
  result.bytes_[kShortCapacity] = kLongTag;
  return result;
}

// For the only owner of a buffer, within its capacity.
void CString::SetLength(std::size_t length) noexcept {
  if (!IsLong()) return SetShortLength(length);
  Buffer* buffer = LongBuffer();
  buffer->length = static_cast<std::uint32_t>(length);
  buffer->Text()[length] = '\0';
}

CString CString::Joined(std::string_view a, std::string_view b) {
  CString result = WithCapacity(a.size() + b.size());
  char* end = std::copy(a.begin(), a.end(), result.OwnText());
  std::copy(b.begin(), b.end(), end);
  result.SetLength(a.size() + b.size());
  return result;
}

// The characters, for writing: leaves what is shared to the others.
char* CString::OwnText() {
  if (!IsLong()) return bytes_;
  if (LongBuffer()->owners.load(std::memory_order_acquire) != 1) *this = Joined(View(), {});
  return LongBuffer()->Text();
}

CString& CString::Append(std::string_view text) {
  const std::size_t length = Length();
  const std::size_t joined = length + text.size();
  const bool fits = IsLong() ? joined <= LongBuffer()->capacity : joined <= kShortCapacity;
  const bool alone = !IsLong() || LongBuffer()->owners.load(std::memory_order_acquire) == 1;
  if (!fits || !alone) {
    // Half as much again, so that a text built piece by piece is not copied for each. The text may be our own
    // part.
    CString grown = WithCapacity(std::max(joined, std::min(length + length / 2, kLongest)));
    std::memcpy(grown.OwnText(), GetString(), length);
    std::copy(text.begin(), text.end(), grown.OwnText() + length);
    grown.SetLength(joined);
    Swap(grown);
    return *this;
  }
  std::copy(text.begin(), text.end(), OwnText() + length);
  SetLength(joined);
  return *this;
}

char CString::GetAt(int position) const noexcept {
  return position < 0 || position >= GetLength() ? '\0' : GetString()[position];
}

void CString::SetAt(int position, char character) {
  if (position >= 0 && position < GetLength()) OwnText()[position] = character;
}

int CString::CompareNoCase(const char* text) const noexcept {
  const std::string_view a = View();
  const std::string_view b = ViewOf(text);
  const auto order =
      std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return static_cast<unsigned char>(Lower(x)) <=> static_cast<unsigned char>(Lower(y));
      });
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

CString CString::Part(std::size_t first, std::size_t count) const {
  return first == 0 && count == Length() ? *this : CString(View().substr(first, count));
}

CString CString::Left(int count) const { return Part(0, Clamped(count, Length())); }
CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
  const std::size_t start = Clamped(first, Length());
  return Part(start, Clamped(count, Length() - start));
}

CString CString::Right(int count) const {
  const std::size_t kept = Clamped(count, Length());
  return Part(Length() - kept, kept);
}

int CString::Find(char character, int start) const noexcept {
  return Position(View().find(character, Clamped(start, Length())));
}

int CString::Find(const char* text, int start) const noexcept {
  return Position(View().find(ViewOf(text), Clamped(start, Length())));
}

int CString::ReverseFind(char character) const noexcept { return Position(View().rfind(character)); }

CString& CString::TrimLeft() {
  const std::string_view text = View();
  const auto first = std::find_if_not(text.begin(), text.end(), IsSpace);
  return *this = Mid(static_cast<int>(first - text.begin()));
}

CString& CString::TrimRight() {
  const std::string_view text = View();
  const auto end = std::find_if_not(text.rbegin(), text.rend(), IsSpace);
  return *this = Left(static_cast<int>(text.rend() - end));
}

CString& CString::Trim() { return TrimLeft().TrimRight(); }

CString& CString::MakeUpper() {
  char* text = OwnText();
  std::transform(text, text + Length(), text, Upper);
  return *this;
}

CString& CString::MakeLower() {
  char* text = OwnText();
  std::transform(text, text + Length(), text, Lower);
  return *this;
}

#endif
