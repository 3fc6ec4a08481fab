#include "platform/ProfileFile.h"

#include "platform/FileSystem.h"
#include "platform/ReplacingFile.h"
#include "platform/posix/ProfileText.h"

// Bytes go through as they are: the file may hold text of another code page.
#define SI_NO_CONVERSION
#include <SimpleIni.h>

#include <array>

namespace qv {
namespace {

constexpr std::size_t kLongestValue = 1023;
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

enum class ReadResult { Read, Missing, Failed };

ReadResult ReadWhole(const std::string& path, std::string& text) {
  std::string ignored;
  const std::unique_ptr<OpenFile> file = Files().Open(path, OpenMode::Read, ignored);
  if (file == nullptr) return Files().Exists(path) ? ReadResult::Failed : ReadResult::Missing;
  std::array<char, 4096> buffer;
  std::ptrdiff_t count = 0;
  while ((count = file->Read(buffer.data(), buffer.size())) > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return count < 0 ? ReadResult::Failed : ReadResult::Read;
}

bool IsQuoted(const std::string& value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == '"' || value.front() == '\'');
}

std::string FindValue(const std::string& text, const char* section, const char* key) {
  CSimpleIniA profile(false, true);  // with several keys of one name, the first counts
  if (profile.LoadData(text) < 0) return {};
  const char* found = profile.GetValue(section, key, "");
  std::string value = found;
  if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
  return value.substr(0, kLongestValue);
}

// A reader strips white space and one pair of quotation marks, so a text that has its own gets a pair around.
std::string QuoteForReader(const std::string& value) {
  const auto isSpace = [](char c) { return c == ' ' || c == '\t'; };
  const bool needsQuotes =
      !value.empty() && (isSpace(value.front()) || isSpace(value.back()) || IsQuoted(value));
  return needsQuotes ? '"' + value + '"' : value;
}

}  // namespace

std::string ReadProfileText(const std::string& path, const char* section, const char* key) {
  std::string text;
  return ReadWhole(path, text) == ReadResult::Read ? FindValue(text, section, key) : std::string();
}

bool WriteProfileText(const std::string& path, const char* section, const char* key,
                      const std::string& value) {
  std::string text;
  if (ReadWhole(path, text) == ReadResult::Failed || text.starts_with(kUtf16Mark)) return false;
  const std::string changed = SetProfileKey(text, section, key, QuoteForReader(value));
  // A value that cannot be had back (it holds a line end, say) would tear the file.
  if (FindValue(changed, section, key) != value.substr(0, kLongestValue)) return false;
  ReplacingFile file(path, WorkingPlace::BesideTarget);
  return file.Open() && file.Write(changed) && file.Commit();
}

}  // namespace qv
