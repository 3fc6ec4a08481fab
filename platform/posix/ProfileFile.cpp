#include "platform/ProfileFile.h"

#include "platform/FileSystem.h"
#include "platform/ReplacingFile.h"
#include "text/Ascii.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace qv {
namespace {

constexpr std::size_t kMaxValue = 1023;
constexpr std::string_view kSpaces = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

// Nothing when a file that is there cannot be read.
std::optional<std::string> ReadProfile(const std::string& path) {
  std::string ignored;
  std::optional<std::string> text = ReadFile(path, ignored);
  return text || Files().Exists(path) ? std::move(text) : std::string();
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kSpaces);
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(kSpaces) + 1 - first);
}

// "[ name ] anything"
bool IsSection(std::string_view line, std::string_view section) {
  const std::size_t close = line.find(']');
  return close != std::string_view::npos && EqualsIgnoringCase(Trim(line.substr(1, close - 1)), section);
}

bool IsKey(std::string_view line, std::string_view key) {
  if (line.starts_with(';') || line.starts_with('#')) return false;
  const std::size_t equals = line.find('=');
  return equals != std::string_view::npos && EqualsIgnoringCase(Trim(line.substr(0, equals)), key);
}

// Where the key is, or where it is to be inserted. Of several keys of one name the first counts.
struct Place {
  bool sectionFound = false;
  bool keyFound = false;
  std::size_t at = 0;   // the value, or the start of a line to come
  std::size_t end = 0;  // the value's end
};

Place FindKey(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  bool inside = false;
  bool inFirst = false;
  for (std::size_t start = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
       start < text.size();) {
    const std::size_t next = std::min(text.find('\n', start), text.size() - 1) + 1;
    const std::string_view whole = text.substr(start, next - start);
    const std::string_view line = Trim(whole);
    if (line.starts_with('[')) {
      inside = IsSection(line, section);
      inFirst = inside && !place.sectionFound;
      place.sectionFound = place.sectionFound || inside;
    } else if (inside && IsKey(line, key)) {
      const std::size_t value = std::min(whole.find_first_not_of(" \t", whole.find('=') + 1), whole.size());
      const std::size_t end = whole.find_last_not_of(kSpaces) + 1;
      return {true, true, start + std::min(value, end), start + end};
    }
    if (inFirst && !line.empty()) place.at = next;
    start = next;
  }
  return place;
}

// Every other byte stays as it was: the file is the host's, and holds comments and lines of which we know
// nothing. A missing key goes after its section's last line, a missing section to the end.
std::string SetKey(std::string_view text, std::string_view section, std::string_view key,
                   std::string_view value) {
  const std::string_view lineEnd = text.find("\r\n") == std::string_view::npos ? "\n" : "\r\n";
  const Place place = FindKey(text, section, key);
  std::string result(text);
  if (place.keyFound) return result.replace(place.at, place.end - place.at, value);
  std::string lines;
  if (!place.sectionFound) lines.append("[").append(section).append("]").append(lineEnd);
  lines.append(key).append("=").append(value).append(lineEnd);
  const std::size_t at = place.sectionFound ? place.at : text.size();
  if (at > 0 && text[at - 1] != '\n') lines.insert(0, lineEnd);
  return result.insert(at, lines);
}

}  // namespace

std::string ReadProfileText(const std::string& path, const char* section, const char* key) {
  const std::string text = ReadProfile(path).value_or("");
  const Place place = FindKey(text, section, key);
  if (!place.keyFound) return {};
  std::string_view value = std::string_view(text).substr(place.at, place.end - place.at);
  if (IsQuotedProfileText(value)) value = value.substr(1, value.size() - 2);
  return std::string(value.substr(0, kMaxValue));
}

bool PutProfileText(const std::string& path, const char* section, const char* key, const std::string& value) {
  const std::optional<std::string> text = ReadProfile(path);
  if (!text || text->starts_with(kUtf16Mark)) return false;
  ReplacingFile file(path, WorkingPlace::BesideTarget);
  return file.Open() && file.Write(SetKey(*text, section, key, value)) && file.Commit();
}

std::string UserSettingsFolder() {
  const auto folderIn = [](const char* variable) {
    const char* const value = std::getenv(variable);
    const std::string folder = value == nullptr ? "" : value;
    return folder.starts_with('/') ? folder + "/" : std::string();
  };
  if (std::string folder = folderIn("XDG_CONFIG_HOME"); !folder.empty()) return folder;
  const std::string home = folderIn("HOME");
  return home.empty() ? home : home + ".config/";
}

}  // namespace qv
