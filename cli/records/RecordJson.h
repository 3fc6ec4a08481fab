#pragma once

#include "cli/Errors.h"
#include "cli/JsonWriter.h"
#include "cli/TextCoding.h"
#include "engines/columns/RecordFields.h"
#include "platform/FileSystem.h"

#include <functional>
#include <string>
#include <string_view>

namespace qv {

/// Writes the record as one JSON object. Returns the stem of a number that JSON has no way to write (an
/// infinity, say; null is written instead), or nothing.
std::string_view WriteRecordJson(JsonWriter& json, const RecordType& type, void* record,
                                 const TextCoding& coding);

/// Reads records of a kind from a document as an import prints it, from a bare array, or from JSON lines, of
/// any length, and gives each to `take` as soon as it is whole. `name` is what diagnostics call the file.
/// Texts are encoded as the coding says. Warnings go to `warn`. Throws FileError when the input is no list of
/// records of the kind, also when it looks so because reading it failed.
void ReadRecordsJson(const std::string& name, OpenFile& file, const RecordType& type,
                     const TextCoding& coding, const std::function<void(const Utf8Diagnostic& warning)>& warn,
                     const std::function<void(AnyRecord record)>& take);

}  // namespace qv
