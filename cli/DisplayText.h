#pragma once

#include <string>
#include <string_view>

namespace qv {

/// The text as it may be shown on a terminal, whoever wrote it: what would control the terminal or turn the
/// direction of writing is shown by a visible stand-in. UTF-8 in and out.
std::string Harmless(std::string_view utf8);

/// The terminal columns that the text fills: two for most East Asian characters, none for combining ones.
int DisplayWidth(std::string_view utf8);

/// As much of the text as fits the width, its end replaced by "…" when not all does.
std::string CutToWidth(std::string_view utf8, int width);

}  // namespace qv
