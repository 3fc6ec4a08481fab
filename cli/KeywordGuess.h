#pragma once

#include "cli/RecordFields.h"

#include <string>
#include <string_view>
#include <vector>

namespace qv {

bool SameIgnoringCase(std::string_view left, std::string_view right);

/// The keyword of the kind that was meant by one that it does not know; empty when it knows this one, or when
/// none or several are near.
std::string GuessKeyword(const RecordType& type, std::string_view keyword);

/// The name of the kind that knows all of the keywords, when `type` knows none of them; else empty.
std::string_view GuessKind(const RecordType& type, const std::vector<std::string>& keywords);

}  // namespace qv
