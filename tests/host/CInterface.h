#pragma once

#include "engines/columns/RecordFields.h"
#include "platform/CodePage.h"

#include <QVAssemblyFile/qvassembly.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>

/// Records from one side of the C interface to the other, field by field.
namespace c_interface {

inline void Take(qva::Record& from, const qv::RecordType& type, void* to) {
  for (const qv::RecordField& field : type.fields) {
    const std::string stem(field.stem);
    const char* const name = stem.c_str();
    switch (field.type) {
      case qv::FieldType::Text:
        field.set(to, std::string_view(qv::FromUtf8(from.text(name))));
        break;
      case qv::FieldType::Int:
        field.set(to, from.integer(name));
        break;
      case qv::FieldType::Float:
        field.set(to, static_cast<float>(from.number(name)));
        break;
      case qv::FieldType::Double:
        field.set(to, from.number(name));
        break;
      case qv::FieldType::Bool:
        field.set(to, from.flag(name));
        break;
      case qv::FieldType::List:
        field.resize(to, static_cast<std::size_t>(from.listSize(name)));
        for (std::int32_t index = 0; index < from.listSize(name); ++index) {
          qva::Record element = from.element(name, index);
          Take(element, *field.elements, field.element(to, static_cast<std::size_t>(index)));
        }
    }
  }
}

inline void SetField(qva::Record& record, const char* name, const qv::FieldValue& value) {
  std::visit(
      [&](const auto& held) {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::string_view>)
          record.set(name, qv::ToUtf8(held));
        else if constexpr (std::is_same_v<Held, float>)
          record.set(name, static_cast<double>(held));
        else
          record.set(name, held);
      },
      value);
}

inline void Give(const qv::RecordType& type, void* from, qva::Record& to) {
  for (const qv::RecordField& field : type.fields) {
    const std::string stem(field.stem);
    if (field.type != qv::FieldType::List) {
      SetField(to, stem.c_str(), field.get(from));
      continue;
    }
    to.resizeList(stem.c_str(), static_cast<std::int32_t>(field.count(from)));
    for (std::size_t index = 0; index < field.count(from); ++index) {
      qva::Record element = to.element(stem.c_str(), static_cast<std::int32_t>(index));
      Give(*field.elements, field.element(from, index), element);
    }
  }
}

}  // namespace c_interface
