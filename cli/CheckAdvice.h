#pragma once

#include <string_view>

namespace qv {

/// What a person may do about the remarks of a code; empty where the remark says it all.
std::string_view AdviceFor(std::string_view code);

}  // namespace qv
