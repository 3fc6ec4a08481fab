#include "cli/RecordFields.h"

#include <algorithm>
#include <charconv>

namespace qv {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool Matches(std::string_view left, std::string_view right, bool ignoreCase) {
  return left.size() == right.size() &&
         std::equal(left.begin(), left.end(), right.begin(),
                    [=](char a, char b) { return ignoreCase ? Lower(a) == Lower(b) : a == b; });
}

template <class Condition>
const RecordField* FindIf(const RecordType& type, Condition condition) {
  const auto found = std::find_if(type.fields.begin(), type.fields.end(), condition);
  return found == type.fields.end() ? nullptr : &*found;
}

template <class Number>
std::string ShortestText(Number value) {
  char text[64];
  return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

struct ToText {
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(int value) const { return std::to_string(value); }
  std::string operator()(float value) const { return TextOf(value); }
  std::string operator()(double value) const { return TextOf(value); }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
};

}  // namespace

AnyRecord::AnyRecord(const RecordType& type) : type_(&type), record_(type.create(), type.destroy) {}

const RecordType& RecordTypeOf(RecordKind kind) { return RecordTypes()[static_cast<std::size_t>(kind)]; }

const RecordField* FindField(const RecordType& type, std::string_view stem) {
  return FindIf(type, [&](const RecordField& field) { return field.stem == stem; });
}

const RecordField* FindFieldOfColumn(const RecordType& type, std::string_view keyword) {
  if (keyword.empty()) return nullptr;
  return FindIf(type, [&](const RecordField& field) {
    return Matches(field.keyword, keyword, type.ignoresCase) ||
           Matches(field.keyword2, keyword, type.ignoresCase);
  });
}

std::string TextOf(float value) { return ShortestText(value); }
std::string TextOf(double value) { return ShortestText(value); }

std::string GetText(void* record, const RecordField& field) {
  if (field.type == FieldType::List) return std::to_string(field.getList(record).size());
  return std::visit(ToText(), field.get(record));
}

}  // namespace qv
