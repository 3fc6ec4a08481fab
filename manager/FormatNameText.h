#pragma once

#include <string>
#include <string_view>

namespace qv {

/// A stored format name as hosts get it: "%%" stands for "%", any other directive finds no argument and gives
/// nothing.
std::string ExpandFormatName(std::string_view stored);

}  // namespace qv
