#include "c/Handles.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <cmath>

using namespace qv::c;
using qv::FieldType;
using qv::RecordField;

void qv::c::CopyRecord(const qv::RecordType& type, void* to, void* from) {
  for (const RecordField& field : type.fields) {
    if (field.type != FieldType::List) {
      field.set(to, field.get(from));
      continue;
    }
    const std::size_t count = field.count(from);
    field.resize(to, count);
    for (std::size_t index = 0; index < count; ++index)
      CopyRecord(*field.elements, field.element(to, index), field.element(from, index));
  }
}

namespace {

std::string NameOf(const RecordField& field) { return std::string(field.stem); }

/// The field of the record, which must be given, when it is of one of the types.
const RecordField& FieldOf(const qva_record* record, std::int32_t index,
                           std::initializer_list<FieldType> types) {
  const RecordField& field = qv::c::FieldOf(*Given(record, "record").type, index);
  if (std::find(types.begin(), types.end(), field.type) == types.end())
    Fail(QVA_INVALID_ARGUMENT, "the field " + NameOf(field) + " is of another type");
  return field;
}

template <class Value>
Value Get(const qva_record* record, const RecordField& field) {
  return std::visit(
      [](const auto& value) -> Value {
        if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>)
          return static_cast<Value>(value);
        else
          return Value{};
      },
      field.get(record->object));
}

void SetFloat(void* record, const RecordField& field, double value) {
  const auto narrow = static_cast<float>(value);
  if (std::isfinite(value) && !std::isfinite(narrow))
    Fail(QVA_TOO_LONG, "the field " + NameOf(field) + " cannot hold so large a number");
  field.set(record, narrow);
}

}  // namespace

qva_status QVA_CALL qva_record_create(int32_t kind, qva_record** record) {
  return Guarded([&] {
    qva_record*& created = Given(record, "record");
    created = new qva_record(qv::RecordTypeOf(KindOf(kind)));
  });
}

qva_status QVA_CALL qva_record_clone(const qva_record* record, qva_record** copy) {
  return Guarded([&] {
    const qva_record& source = Given(record, "record");
    qva_record*& target = Given(copy, "copy");
    auto clone = std::make_unique<qva_record>(*source.type);
    CopyRecord(*source.type, clone->object, source.object);
    target = clone.release();
  });
}

void QVA_CALL qva_record_destroy(qva_record* record) {
  if (record != nullptr && record->owned) delete record;
}

qva_status QVA_CALL qva_record_type(const qva_record* record, int32_t* type) {
  return Guarded([&] { Given(type, "type") = NumberOf(*Given(record, "record").type); });
}

qva_status QVA_CALL qva_record_get_text(const qva_record* record, int32_t field, char* buffer, int32_t size,
                                        int32_t* needed) {
  return Guarded([&] {
    const RecordField& text = FieldOf(record, field, {FieldType::Text});
    return GiveText(qv::ToUtf8(text.text(record->object)), buffer, size, needed);
  });
}

qva_status QVA_CALL qva_record_get_integer(const qva_record* record, int32_t field, int32_t* value) {
  return Guarded(
      [&] { Give(value, "value", Get<int32_t>(record, FieldOf(record, field, {FieldType::Int}))); });
}

qva_status QVA_CALL qva_record_get_number(const qva_record* record, int32_t field, double* value) {
  return Guarded([&] {
    const RecordField& number = FieldOf(record, field, {FieldType::Float, FieldType::Double, FieldType::Int});
    Given(value, "value") = Get<double>(record, number);
  });
}

qva_status QVA_CALL qva_record_get_flag(const qva_record* record, int32_t field, int32_t* value) {
  return Guarded(
      [&] { Give(value, "value", Get<int32_t>(record, FieldOf(record, field, {FieldType::Bool}))); });
}

qva_status QVA_CALL qva_record_set_text(qva_record* record, int32_t field, const char* text) {
  return Guarded([&] {
    const RecordField& field_ = FieldOf(record, field, {FieldType::Text});
    const std::string bytes = FromHost(text, NameOf(field_));
    if (field_.capacity != 0 && bytes.size() > field_.capacity)
      Fail(QVA_TOO_LONG, "the field " + NameOf(field_) + " holds " + std::to_string(field_.capacity) +
                             " bytes, and the text has " + std::to_string(bytes.size()));
    field_.set(record->object, std::string_view(bytes));
  });
}

qva_status QVA_CALL qva_record_set_integer(qva_record* record, int32_t field, int32_t value) {
  return Guarded([&] { FieldOf(record, field, {FieldType::Int}).set(record->object, value); });
}

qva_status QVA_CALL qva_record_set_number(qva_record* record, int32_t field, double value) {
  return Guarded([&] {
    const RecordField& number = FieldOf(record, field, {FieldType::Float, FieldType::Double});
    if (number.type == FieldType::Double)
      number.set(record->object, value);
    else
      SetFloat(record->object, number, value);
  });
}

qva_status QVA_CALL qva_record_set_flag(qva_record* record, int32_t field, int32_t value) {
  return Guarded([&] { FieldOf(record, field, {FieldType::Bool}).set(record->object, value != 0); });
}

qva_status QVA_CALL qva_record_list_size(const qva_record* record, int32_t field, int32_t* size) {
  return Guarded(
      [&] { Give(size, "size", FieldOf(record, field, {FieldType::List}).count(record->object)); });
}

qva_status QVA_CALL qva_record_list_resize(qva_record* record, int32_t field, int32_t size) {
  return Guarded([&] {
    const RecordField& list = FieldOf(record, field, {FieldType::List});
    if (size < 0) Fail(QVA_INVALID_ARGUMENT, "a list cannot have " + std::to_string(size) + " elements");
    list.resize(record->object, static_cast<std::size_t>(size));
    record->elements.clear();
  });
}

qva_status QVA_CALL qva_record_list_element(qva_record* record, int32_t field, int32_t index,
                                            qva_record** element) {
  return Guarded([&] {
    const RecordField& list = FieldOf(record, field, {FieldType::List});
    const std::size_t place = IndexIn(list.count(record->object), index, "the list has no element ");
    void* const object = list.element(record->object, place);
    auto& handle = record->elements[{field, index}];
    if (handle == nullptr) handle = std::make_unique<qva_record>(*list.elements, object);
    Given(element, "element") = handle.get();
  });
}
