#include "manager/FormatNameText.h"

namespace qv {

std::string ExpandFormatName(std::string_view stored) {
  std::string name;
  while (!stored.empty()) {
    const std::size_t percent = stored.find('%');
    name += stored.substr(0, percent);
    if (percent == std::string_view::npos) break;
    stored.remove_prefix(percent + 1);
    // Flags, width, precision and length, then the letter that ends the directive.
    const std::size_t letter = stored.find_first_not_of("-+ #0123456789.*hlLjztIw");
    if (letter == std::string_view::npos) break;
    if (letter == 0 && stored[letter] == '%') name += '%';
    stored.remove_prefix(letter + 1);
  }
  return name;
}

}  // namespace qv
