#include "platform/windows/Paths.h"

#include "platform/FileSystem.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

namespace qv {
namespace {

constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kLongShare = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";
constexpr std::size_t kMaxPlainPath = 247;  // from here on a folder needs the prefix

// Calls a function of the system that fills a buffer, with a buffer that is large enough.
template <class Fill>
std::wstring Filled(Fill fill) {
  std::wstring buffer(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = fill(buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0) return {};
    const bool whole = length < buffer.size();
    buffer.resize(whole ? length : std::max<std::size_t>(length, 2 * buffer.size()));
    if (whole) return buffer;
  }
}

std::wstring WithLongPrefix(const std::wstring& path) {
  if (path.size() <= kMaxPlainPath || path.starts_with(kLongPrefix) || path.starts_with(kDevicePrefix)) {
    return path;
  }
  return path.starts_with(L"\\\\") ? std::wstring(kLongShare) + path.substr(2)
                                   : std::wstring(kLongPrefix) + path;
}

std::wstring WithoutLongPrefix(const std::wstring& path) {
  if (path.starts_with(kLongShare)) return L"\\\\" + path.substr(kLongShare.size());
  return path.starts_with(kLongPrefix) ? path.substr(kLongPrefix.size()) : path;
}

std::wstring BehindLink(const std::wstring& path) {
  const Handle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file.IsOpen()) return path;
  const std::wstring target = Filled(
      [&](wchar_t* buffer, DWORD size) { return GetFinalPathNameByHandleW(file.Get(), buffer, size, 0); });
  return target.empty() ? path : WithLongPrefix(WithoutLongPrefix(target));
}

}  // namespace

std::wstring FullPath(const std::string& path) {
  if (path.empty()) return {};
  const std::wstring wide = Widen(path);
  return WithLongPrefix(Filled(
      [&](wchar_t* buffer, DWORD size) { return GetFullPathNameW(wide.c_str(), size, buffer, nullptr); }));
}

std::wstring RealPath(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return path;
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return BehindLink(path);
  const std::wstring spelled =
      Filled([&](wchar_t* buffer, DWORD size) { return GetLongPathNameW(path.c_str(), buffer, size); });
  return spelled.empty() ? path : WithLongPrefix(spelled);
}

std::string NarrowPath(const std::wstring& path) {
  if (const auto whole = NarrowWhole(WithoutLongPrefix(path))) return *whole;
  const std::wstring shortForm =
      Filled([&](wchar_t* buffer, DWORD size) { return GetShortPathNameW(path.c_str(), buffer, size); });
  return NarrowWhole(WithoutLongPrefix(shortForm)).value_or("");
}

std::string ProgramPath() {
  return NarrowPath(
      Filled([](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); }));
}

std::wstring FolderOf(const std::wstring& path) { return path.substr(0, path.find_last_of(L"\\/") + 1); }

std::wstring FileNameOf(const std::wstring& path) { return path.substr(path.find_last_of(L"\\/") + 1); }

std::wstring ExtensionOf(const std::wstring& path) {
  const std::wstring name = FileNameOf(path);
  const std::size_t dot = name.rfind(L'.');
  return dot == std::wstring::npos ? std::wstring() : name.substr(dot);
}

bool IsDevice(const std::wstring& path) { return path.starts_with(kDevicePrefix); }

}  // namespace qv
