#include "platform/ProfileFile.h"

#include "platform/windows/Paths.h"

#include <windows.h>

#include <array>

namespace qv {
namespace {

constexpr DWORD kCapacity = 1024;

// A profile that is named without its folder would be looked for in the system's.
std::string WholePath(const std::string& path) { return NarrowPath(FullPath(path)); }

}  // namespace

std::string ReadProfileText(const std::string& path, const char* section, const char* key) {
  std::array<char, kCapacity> value{};
  const DWORD length =
      GetPrivateProfileStringA(section, key, "", value.data(), kCapacity, WholePath(path).c_str());
  return {value.data(), length};
}

bool PutProfileText(const std::string& path, const char* section, const char* key, const std::string& value) {
  return WritePrivateProfileStringA(section, key, value.c_str(), WholePath(path).c_str()) != FALSE;
}

std::string UserSettingsFolder() { return {}; }

}  // namespace qv
