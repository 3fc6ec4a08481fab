#pragma once

#include "cli/RecordFields.h"
#include "cli/TextCoding.h"

#include <string>
#include <string_view>

namespace qv {

/// Appends the record as one JSON object on one line. Returns the stem of a number that JSON has no way to
/// write (an infinity, say; null stands in for it), or nothing.
std::string_view AppendRecordJson(std::string& out, const RecordType& type, void* record,
                                  const TextCoding& coding);

}  // namespace qv
