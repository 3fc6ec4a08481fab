#include "cli/records/RecordJson.h"

#include <cmath>
#include <variant>

namespace qv {
namespace {

/// Writes the value of a field; false for a number that JSON has not.
struct ValueWriter {
  bool operator()(std::string_view text) const {
    json.Value(coding.Decode(text));
    return true;
  }
  bool operator()(float number) const { return Real(number); }
  bool operator()(double number) const { return Real(number); }
  bool operator()(auto value) const {
    json.Value(value);
    return true;
  }

  bool Real(auto number) const {
    json.Value(number);
    return std::isfinite(number);
  }

  JsonWriter& json;
  const TextCoding& coding;
};

}  // namespace

std::string_view WriteRecordJson(JsonWriter& json, const RecordType& type, void* record,
                                 const TextCoding& coding) {
  const ValueWriter writer{json, coding};
  std::string_view unwritable;
  json.BeginObject();
  for (const RecordField& field : type.fields) {
    json.Key(field.stem);
    if (field.type == FieldType::List) {
      json.BeginArray();
      for (std::size_t index = 0; index < field.count(record); ++index)
        if (const auto stem = WriteRecordJson(json, *field.elements, field.element(record, index), coding);
            !stem.empty())
          unwritable = stem;
      json.EndArray();
    } else if (!std::visit(writer, field.get(record))) {
      unwritable = field.stem;
    }
  }
  json.EndObject();
  return unwritable;
}

}  // namespace qv
