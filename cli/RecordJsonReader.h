#pragma once

#include "cli/JsonSource.h"
#include "cli/RecordFields.h"
#include "cli/TextCoding.h"

#include <functional>
#include <string>
#include <vector>

namespace qv {

/// What is wrong with a records file, or was not taken as it stood there.
struct JsonRemark {
  std::int64_t line = 0;
  std::string key;  ///< of the record; may be empty
  std::string code;
  std::string text;
  std::string message;
};

/// Thrown when the input is no list of records of the kind.
struct JsonError : std::runtime_error {
  explicit JsonError(JsonRemark what) : std::runtime_error(what.message), remark(std::move(what)) {}
  JsonRemark remark;
};

using JsonRemarkHandler = std::function<void(const JsonRemark& remark)>;

/// Reads records of a kind from a document as an import prints it, from a bare array, or from JSON lines.
/// Texts are encoded as the coding says. Warnings go to `warn`.
std::vector<AnyRecord> ReadRecordsJson(JsonSource& source, const RecordType& type, const TextCoding& coding,
                                       const JsonRemarkHandler& warn);

}  // namespace qv
