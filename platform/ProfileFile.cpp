#include "platform/ProfileFile.h"

namespace qv {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

bool IsQuotedProfileText(std::string_view value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == '"' || value.front() == '\'');
}

bool WriteProfileText(const std::string& path, const char* section, const char* key,
                      const std::string& value) {
  constexpr std::string_view kTearing("\r\n\0", 3);
  if (value.find_first_of(kTearing) != std::string::npos) return false;
  const bool needsQuotes =
      !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()) || IsQuotedProfileText(value));
  return PutProfileText(path, section, key, needsQuotes ? '"' + value + '"' : value);
}

}  // namespace qv
