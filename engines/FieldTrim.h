#pragma once

#include <string_view>

namespace qv {

/// Without the spaces at both ends, then without one leading and one trailing double quote. Tabs and single
/// quotes stay.
std::string_view TrimField(std::string_view field);

}  // namespace qv
