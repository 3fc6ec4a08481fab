#pragma once

#include "cli/RecordFields.h"
#include "cli/TextCoding.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

/// Turn values as JSON has them into values of a field. Each gives nothing, and a reason for a person, when
/// the value does not fit the field.

struct ValueFault {
  std::string reason;  ///< "is no whole number"
};

std::optional<FieldValue> ValueFromInteger(const RecordField& field, std::int64_t number, ValueFault& fault);

/// `literal` is the number as it was written; `number` is infinite where no double holds it.
std::optional<FieldValue> ValueFromReal(const RecordField& field, double number, std::string_view literal,
                                        ValueFault& fault);

std::optional<FieldValue> ValueFromFlag(const RecordField& field, bool flag, ValueFault& fault);

/// `utf8` becomes bytes of the coding.
std::optional<FieldValue> ValueFromText(const RecordField& field, std::string_view utf8,
                                        const TextCoding& coding, ValueFault& fault);

/// What a field takes, for a person: "a whole number".
const char* WantedOf(const RecordField& field);

}  // namespace qv
