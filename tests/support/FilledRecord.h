#pragma once

#include "engines/columns/RecordFields.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// Records of any kind with a value of its own in every field.
namespace qv {

/// Throws when there is no kind of that name.
inline RecordKind KindNamed(std::string_view name) {
  for (const RecordType& type : RecordTypes())
    if (type.name == name) return static_cast<RecordKind>(&type - RecordTypes().data());
  throw std::invalid_argument("no kind: " + std::string(name));
}

/// What the field reads; a list is the number of its elements, followed by what they hold.
inline std::string ReadField(void* record, const RecordField& field) {
  std::string text = GetText(record, field);
  if (field.type != FieldType::List) return text;
  for (std::size_t index = 0; index < field.count(record); ++index)
    for (const RecordField& part : field.elements->fields)
      text += " " + ReadField(field.element(record, index), part);
  return text;
}

inline std::vector<std::string> ReadRecord(void* record, const RecordType& type) {
  std::vector<std::string> values;
  for (const RecordField& field : type.fields) values.push_back(ReadField(record, field));
  return values;
}

/// Another value for each seed, but for flags, which an odd one sets.
inline void FillField(void* record, const RecordField& field, int seed) {
  const std::string text =
      "a \"text\" {\\} /\n\x01 \xC3\xBC \xE6\xA0\xAA \xF0\x9D\x84\x9E beyond the object " +
      std::to_string(seed);
  FieldValue value = text;
  if (field.type == FieldType::Int) value = seed;
  if (field.type == FieldType::Float) value = static_cast<float>(seed) / 7;
  if (field.type == FieldType::Double) value = seed / 7e9;
  if (field.type == FieldType::Bool) value = seed % 2 == 1;
  if (field.type != FieldType::List) {
    field.set(record, value);
    EXPECT_EQ(field.get(record), value) << field.stem;
    return;
  }
  field.resize(record, static_cast<std::size_t>(seed % 3 + 1));
  for (std::size_t index = 0; index < field.count(record); ++index)
    for (const RecordField& part : field.elements->fields)
      FillField(field.element(record, index), part, seed += 2);
}

/// Returns what the fields read then.
inline std::vector<std::string> FillRecord(void* record, const RecordType& type, int seed) {
  for (const RecordField& field : type.fields) FillField(record, field, seed += 2);
  return ReadRecord(record, type);
}

}  // namespace qv
