#include "platform/posix/ProfileText.h"

#include <strings.h>

#include <algorithm>

namespace qv {
namespace {

constexpr std::string_view kSpaces = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // which a reader skips

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kSpaces);
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(kSpaces) + 1 - first);
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && ::strncasecmp(a.data(), b.data(), a.size()) == 0;
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

// Where the key stands, or where it belongs.
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

}  // namespace

std::string SetProfileKey(std::string_view text, std::string_view section, std::string_view key,
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

}  // namespace qv
