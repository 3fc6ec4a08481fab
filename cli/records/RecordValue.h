#pragma once

#include "cli/TextCoding.h"
#include "engines/columns/RecordFields.h"

#include <optional>
#include <string>
#include <string_view>

namespace qv {

/// Turn values as JSON has them into values of a field. Each gives nothing, and a reason for a person, when
/// the value does not fit the field.

struct ValueFault {
  std::string reason;  ///< "is no whole number"
};

/// `literal` is the number as JSON has it.
std::optional<FieldValue> ValueFromNumber(const RecordField& field, std::string_view literal,
                                          ValueFault& fault);

std::optional<FieldValue> ValueFromFlag(const RecordField& field, bool flag, ValueFault& fault);

/// The value is a view of `utf8` or of `buffer`, which holds the text in the coding where that is another
/// one.
std::optional<FieldValue> ValueFromText(const RecordField& field, std::string_view utf8,
                                        const TextCoding& coding, std::string& buffer, ValueFault& fault);

/// What a field takes, for a person: "a whole number".
const char* WantedOf(const RecordField& field);

}  // namespace qv
