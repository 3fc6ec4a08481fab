#pragma once

#include "cli/JsonWriter.h"
#include "cli/TextCoding.h"
#include "engines/columns/RecordFields.h"

#include <string_view>

namespace qv {

/// Writes the record as one JSON object. Returns the stem of a number that JSON has no way to write (an
/// infinity, say; null is written instead), or nothing.
std::string_view WriteRecordJson(JsonWriter& json, const RecordType& type, void* record,
                                 const TextCoding& coding);

}  // namespace qv
