#pragma once

#include "cli/RecordFields.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Records of any kind with a value of its own in every field, through the tables that know all of them.
namespace qv {

/// Another value for each seed, but for flags, which an odd one sets.
inline FieldValue ValueOf(FieldType type, int seed) {
  if (type == FieldType::Int) return seed;
  if (type == FieldType::Float) return static_cast<float>(seed) / 7;
  if (type == FieldType::Double) return seed / 7e9;
  if (type == FieldType::Bool) return seed % 2 == 1;
  return "a \"text\" {\\} /\n\x01 \xC3\xBC \xE6\xA0\xAA \xF0\x9D\x84\x9E beyond the object " +
         std::to_string(seed);
}

std::vector<std::string> FillRecord(void* record, const RecordType& type, int seed);

/// Returns what the field reads then; a list is the number of its elements, followed by what they hold.
inline std::string FillField(void* record, const RecordField& field, int seed) {
  if (field.type != FieldType::List) {
    const FieldValue value = ValueOf(field.type, seed);
    field.set(record, value);
    EXPECT_EQ(field.get(record), value) << field.stem;
    return GetText(record, field);
  }
  std::vector<AnyRecord> elements;
  std::string text = std::to_string(seed % 3 + 1);
  for (int last = seed + seed % 3; seed <= last; ++seed) {
    const AnyRecord& element = elements.emplace_back(*field.elements);
    for (const std::string& value : FillRecord(element.Pointer(), element.Type(), seed)) text += " " + value;
  }
  field.setList(record, elements);
  return text;
}

inline std::vector<std::string> FillRecord(void* record, const RecordType& type, int seed) {
  std::vector<std::string> values;
  for (const RecordField& field : type.fields) values.push_back(FillField(record, field, seed += 2));
  return values;
}

}  // namespace qv
