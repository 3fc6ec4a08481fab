#pragma once

#include "cli/RecordFields.h"

#include <QVAssemblyFile/CString.h>

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <vector>

class PartInformation;
class ToolInformation;

namespace qv {

/// Builds the rows of the record tables from pointers to accessors and members.

template <class Pointer>
struct PointerTraits;

template <class Owner, class Result>
struct PointerTraits<Result (Owner::*)()> {
  using Record = Owner;
  using Value = Result;
};

template <class Owner, class Result>
struct PointerTraits<Result (Owner::*)() const> {
  using Record = Owner;
  using Value = Result;
};

/// A getter that fills the caller's buffer.
template <class Owner>
struct PointerTraits<void (Owner::*)(char*)> {
  using Record = Owner;
  using Value = char*;
};

/// A getter or setter of a list.
template <class Owner, class Element>
struct PointerTraits<void (Owner::*)(std::vector<Element>&)> {
  using Record = Owner;
  using Value = Element;
};

template <class Owner, class Type>
struct PointerTraits<Type Owner::*> {
  using Record = Owner;
  using Value = Type;
};

template <class Value>
constexpr FieldType FieldTypeOf() {
  if constexpr (std::is_same_v<Value, int>) return FieldType::Int;
  if constexpr (std::is_same_v<Value, float>) return FieldType::Float;
  if constexpr (std::is_same_v<Value, double>) return FieldType::Double;
  if constexpr (std::is_same_v<Value, bool>) return FieldType::Bool;
  return FieldType::Text;
}

/// The most bytes that a getter of a fixed text writes, with the terminator, in any record.
inline constexpr std::size_t kLargestBuffer = 260;

// Parts and tools keep texts in smaller buffers than the other kinds do.
template <class Record>
inline constexpr std::size_t kTextCapacity = 259;
template <>
inline constexpr std::size_t kTextCapacity<PartInformation> = 255;
template <>
inline constexpr std::size_t kTextCapacity<ToolInformation> = 255;

inline FieldValue ValueOf(const CString& text) {
  return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

template <class Value>
FieldValue ValueOf(const Value& value) {
  if constexpr (std::is_convertible_v<Value, const char*>)
    return std::string(value);
  else
    return value;
}

template <auto Getter, auto Setter>
constexpr RecordField Field(std::string_view stem, std::string_view keyword = {},
                            std::string_view keyword2 = {}) {
  using Traits = PointerTraits<decltype(Getter)>;
  using Record = typename Traits::Record;
  using Value = typename Traits::Value;
  constexpr bool kFillsBuffer = std::is_same_v<Value, char*>;
  constexpr FieldType kType = FieldTypeOf<Value>();
  return {stem,
          kType,
          kFillsBuffer ? kTextCapacity<Record> : 0,
          keyword,
          keyword2,
          !keyword.empty(),
          [](void* record) -> FieldValue {
            Record& object = *static_cast<Record*>(record);
            if constexpr (kFillsBuffer) {
              char buffer[kLargestBuffer];
              (object.*Getter)(buffer);
              return std::string(buffer);
            } else {
              return ValueOf((object.*Getter)());
            }
          },
          [](void* record, const FieldValue& value) {
            Record& object = *static_cast<Record*>(record);
            if constexpr (kType == FieldType::Text)
              (object.*Setter)(std::get<std::string>(value).c_str());
            else
              (object.*Setter)(std::get<Value>(value));
          },
          nullptr,
          nullptr,
          nullptr};
}

/// A field whose column an import passes over.
constexpr RecordField OnlyWritten(RecordField field) {
  field.isRead = false;
  return field;
}

template <std::size_t Size>
void StoreText(char (&field)[Size], const std::string& text) {
  const std::size_t length = std::min(text.size(), Size - 1);
  std::memcpy(field, text.data(), length);
  field[length] = '\0';
}

inline void StoreText(CString& field, const std::string& text) { field = text.c_str(); }

template <auto Pointer>
constexpr RecordField Member(std::string_view stem, std::string_view keyword = {},
                             std::string_view keyword2 = {}) {
  using Record = typename PointerTraits<decltype(Pointer)>::Record;
  using Value = typename PointerTraits<decltype(Pointer)>::Value;
  constexpr FieldType kType = FieldTypeOf<Value>();
  return {stem,
          kType,
          std::is_array_v<Value> ? sizeof(Value) - 1 : 0,
          keyword,
          keyword2,
          !keyword.empty(),
          [](void* record) -> FieldValue { return ValueOf(static_cast<Record*>(record)->*Pointer); },
          [](void* record, const FieldValue& value) {
            auto& field = static_cast<Record*>(record)->*Pointer;
            if constexpr (kType == FieldType::Text)
              StoreText(field, std::get<std::string>(value));
            else
              field = std::get<Value>(value);
          },
          nullptr,
          nullptr,
          nullptr};
}

template <class Element, const RecordType& ElementType, auto Getter, auto Setter>
constexpr RecordField ListField(std::string_view stem) {
  using Record = typename PointerTraits<decltype(Setter)>::Record;
  return {stem,
          FieldType::List,
          0,
          {},
          {},
          false,
          nullptr,
          nullptr,
          &ElementType,
          [](void* record) {
            std::vector<Element> list;
            (static_cast<Record*>(record)->*Getter)(list);
            std::vector<AnyRecord> elements;
            for (const Element& element : list)
              *static_cast<Element*>(elements.emplace_back(ElementType).Pointer()) = element;
            return elements;
          },
          [](void* record, const std::vector<AnyRecord>& elements) {
            std::vector<Element> list;
            for (const AnyRecord& element : elements)
              list.push_back(*static_cast<const Element*>(element.Pointer()));
            (static_cast<Record*>(record)->*Setter)(list);
          }};
}

template <class Record>
RecordType TypeOf(std::string_view name, std::span<const RecordField> fields, bool ignoresCase = false) {
  return {name, ignoresCase, fields, [] { return static_cast<void*>(new Record); },
          [](void* record) { delete static_cast<Record*>(record); }};
}

}  // namespace qv
