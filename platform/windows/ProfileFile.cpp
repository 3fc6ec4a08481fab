#include "platform/ProfileFile.h"

#include "platform/windows/Paths.h"

#include <windows.h>

#include <array>

namespace qv {
namespace {

constexpr DWORD kCapacity = 1024;

// A profile that is named without its folder would be looked for in the system's.
std::string WholePath(const std::string& path) { return NarrowPath(FullPath(path)); }

bool IsQuoted(const std::string& value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == '"' || value.front() == '\'');
}

// The system strips white space and one pair of quotation marks, so a text that has its own gets a pair
// around.
std::string QuoteForReader(const std::string& value) {
  const auto isSpace = [](char c) { return c == ' ' || c == '\t'; };
  const bool needsQuotes =
      !value.empty() && (isSpace(value.front()) || isSpace(value.back()) || IsQuoted(value));
  return needsQuotes ? '"' + value + '"' : value;
}

}  // namespace

std::string ReadProfileText(const std::string& path, const char* section, const char* key) {
  std::array<char, kCapacity> value{};
  const DWORD length =
      GetPrivateProfileStringA(section, key, "", value.data(), kCapacity, WholePath(path).c_str());
  return {value.data(), length};
}

bool WriteProfileText(const std::string& path, const char* section, const char* key,
                      const std::string& value) {
  // A line end would tear the file.
  if (value.find_first_of("\r\n") != std::string::npos) return false;
  const std::string whole = WholePath(path);
  return WritePrivateProfileStringA(section, key, QuoteForReader(value).c_str(), whole.c_str()) != FALSE;
}

}  // namespace qv
