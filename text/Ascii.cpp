#include "text/Ascii.h"

#include <algorithm>

namespace qv {

std::string_view SkipSpace(std::string_view text) {
  text.remove_prefix(
      static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsSpace) - text.begin()));
  return text;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [](char a, char b) { return ToLower(a) == ToLower(b); });
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

bool EndsWithIgnoringCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && EqualsIgnoringCase(text.substr(text.size() - end.size()), end);
}

}  // namespace qv
