#include "cli/records/RecordValue.h"

#include "text/Numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace qv {
namespace {

constexpr const char* kTooLarge = "is a number that the field cannot hold";

std::nullopt_t Refuse(ValueFault& fault, const char* reason) {
  fault.reason = reason;
  return std::nullopt;
}

std::nullopt_t RefuseType(ValueFault& fault, const RecordField& field) {
  fault.reason = std::string("is not ") + WantedOf(field);
  return std::nullopt;
}

bool FitsInt(double number) {
  return number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

// From the number's text and not from a double, for rounding twice may end one step aside.
std::optional<FieldValue> FloatFrom(std::string_view literal, ValueFault& fault) {
  float value = 0;
  const auto result = std::from_chars(literal.data(), literal.data() + literal.size(), value);
  if (result.ec == std::errc()) return value;
  const double number = ParseReal(literal).value;
  if (std::abs(number) > 1) return Refuse(fault, kTooLarge);
  return static_cast<float>(number);
}

}  // namespace

const char* WantedOf(const RecordField& field) {
  switch (field.type) {
    case FieldType::Text:
      return "a text";
    case FieldType::Int:
      return "a whole number";
    case FieldType::Float:
    case FieldType::Double:
      return "a number";
    case FieldType::Bool:
      return "true or false";
    case FieldType::List:
      return "an array of objects";
  }
  return "";
}

std::optional<FieldValue> ValueFromNumber(const RecordField& field, std::string_view literal,
                                          ValueFault& fault) {
  if (field.type == FieldType::Float) return FloatFrom(literal, fault);
  if (field.type != FieldType::Int && field.type != FieldType::Double) return RefuseType(fault, field);
  int whole = 0;
  const char* const end = literal.data() + literal.size();
  const auto [stop, error] = std::from_chars(literal.data(), end, whole);
  if (field.type == FieldType::Int && error == std::errc() && stop == end) return whole;
  const double number = ParseReal(literal).value;
  if (field.type == FieldType::Double && !std::isinf(number)) return number;
  if (field.type == FieldType::Int && number != std::trunc(number)) return RefuseType(fault, field);
  if (field.type == FieldType::Double || !FitsInt(number)) return Refuse(fault, kTooLarge);
  return static_cast<int>(number);
}

std::optional<FieldValue> ValueFromFlag(const RecordField& field, bool flag, ValueFault& fault) {
  if (field.type != FieldType::Bool) return RefuseType(fault, field);
  return flag;
}

std::optional<FieldValue> ValueFromText(const RecordField& field, std::string_view utf8,
                                        const TextCoding& coding, std::string& buffer, ValueFault& fault) {
  if (field.type != FieldType::Text) return RefuseType(fault, field);
  const std::string_view bytes = coding.Encode(utf8, buffer);
  if (bytes.find('\0') != std::string_view::npos)
    return Refuse(fault, "holds a NUL character, which no record can keep");
  return bytes;
}

}  // namespace qv
