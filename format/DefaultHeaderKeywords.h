#pragma once

#include <array>
#include <string_view>

/// The column keywords of a part list, in the order in which formats are completed with them.
extern const std::array<std::string_view, 33> DefaultHeaderKeywords;
