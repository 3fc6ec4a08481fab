#pragma once

#include <string>
#include <string_view>

namespace qv {

/// The text with control characters and marks of writing direction replaced by visible ones, so that no file
/// can control the terminal that shows it. UTF-8 in and out.
std::string Harmless(std::string_view utf8);

/// The terminal columns that the text fills: two for most East Asian characters, none for combining ones.
int DisplayWidth(std::string_view utf8);

/// As much of the text as fits the width, its end replaced by "…" when not all does.
std::string CutToWidth(std::string_view utf8, int width);

/// The text in bold, where colours are wanted.
inline std::string Bold(std::string_view utf8, bool isColoured) {
  return isColoured ? "\x1b[1m" + std::string(utf8) + "\x1b[0m" : std::string(utf8);
}

}  // namespace qv
