#pragma once

#include <string>
#include <string_view>

namespace qv {

/// Appends UTF-8 as a JSON text, in its quotes.
void AppendJsonText(std::string& out, std::string_view utf8);

}  // namespace qv
