#include "c/Handles.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <cmath>
#include <limits>

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

/// The field of the record when it is of one of the types.
const RecordField& FieldOf(const qva_record& record, std::int32_t index,
                           std::initializer_list<FieldType> types) {
  const RecordField& field = qv::c::FieldOf(*record.type, index);
  if (std::find(types.begin(), types.end(), field.type) == types.end())
    Fail(QVA_INVALID_ARGUMENT, "the field " + NameOf(field) + " is of another type");
  return field;
}

template <class Value>
Value Get(const qva_record& record, const RecordField& field) {
  return std::visit(
      [](const auto& value) -> Value {
        if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>)
          return static_cast<Value>(value);
        else
          return Value{};
      },
      field.get(record.object));
}

void SetFloat(qva_record& record, const RecordField& field, double value) {
  const auto narrow = static_cast<float>(value);
  if (std::isfinite(value) && !std::isfinite(narrow))
    Fail(QVA_TOO_LONG, "the field " + NameOf(field) + " cannot hold so large a number");
  field.set(record.object, narrow);
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
    const qva_record& source = Given(record, "record");
    const RecordField& text = FieldOf(source, field, {FieldType::Text});
    return GiveText(qv::ToUtf8(std::get<std::string_view>(text.get(source.object))), buffer, size, needed);
  });
}

qva_status QVA_CALL qva_record_get_integer(const qva_record* record, int32_t field, int32_t* value) {
  return Guarded([&] {
    const qva_record& source = Given(record, "record");
    Given(value, "value") = Get<int32_t>(source, FieldOf(source, field, {FieldType::Int}));
  });
}

qva_status QVA_CALL qva_record_get_number(const qva_record* record, int32_t field, double* value) {
  return Guarded([&] {
    const qva_record& source = Given(record, "record");
    const RecordField& number = FieldOf(source, field, {FieldType::Float, FieldType::Double, FieldType::Int});
    Given(value, "value") = Get<double>(source, number);
  });
}

qva_status QVA_CALL qva_record_get_flag(const qva_record* record, int32_t field, int32_t* value) {
  return Guarded([&] {
    const qva_record& source = Given(record, "record");
    Given(value, "value") = Get<int32_t>(source, FieldOf(source, field, {FieldType::Bool}));
  });
}

qva_status QVA_CALL qva_record_set_text(qva_record* record, int32_t field, const char* text) {
  return Guarded([&] {
    qva_record& target = Given(record, "record");
    const RecordField& field_ = FieldOf(target, field, {FieldType::Text});
    const std::string bytes = FromHost(text, NameOf(field_));
    if (field_.capacity != 0 && bytes.size() > field_.capacity)
      Fail(QVA_TOO_LONG, "the field " + NameOf(field_) + " holds " + std::to_string(field_.capacity) +
                             " bytes, and the text has " + std::to_string(bytes.size()));
    field_.set(target.object, std::string_view(bytes));
  });
}

qva_status QVA_CALL qva_record_set_integer(qva_record* record, int32_t field, int32_t value) {
  return Guarded([&] {
    qva_record& target = Given(record, "record");
    FieldOf(target, field, {FieldType::Int}).set(target.object, value);
  });
}

qva_status QVA_CALL qva_record_set_number(qva_record* record, int32_t field, double value) {
  return Guarded([&] {
    qva_record& target = Given(record, "record");
    const RecordField& number = FieldOf(target, field, {FieldType::Float, FieldType::Double});
    if (number.type == FieldType::Double)
      number.set(target.object, value);
    else
      SetFloat(target, number, value);
  });
}

qva_status QVA_CALL qva_record_set_flag(qva_record* record, int32_t field, int32_t value) {
  return Guarded([&] {
    qva_record& target = Given(record, "record");
    FieldOf(target, field, {FieldType::Bool}).set(target.object, value != 0);
  });
}

qva_status QVA_CALL qva_record_list_size(const qva_record* record, int32_t field, int32_t* size) {
  return Guarded([&] {
    const qva_record& source = Given(record, "record");
    Given(size, "size") =
        static_cast<int32_t>(FieldOf(source, field, {FieldType::List}).count(source.object));
  });
}

qva_status QVA_CALL qva_record_list_resize(qva_record* record, int32_t field, int32_t size) {
  return Guarded([&] {
    qva_record& target = Given(record, "record");
    const RecordField& list = FieldOf(target, field, {FieldType::List});
    if (size < 0) Fail(QVA_INVALID_ARGUMENT, "a list cannot have " + std::to_string(size) + " elements");
    list.resize(target.object, static_cast<std::size_t>(size));
    target.elements.clear();
  });
}

qva_status QVA_CALL qva_record_list_element(qva_record* record, int32_t field, int32_t index,
                                            qva_record** element) {
  return Guarded([&] {
    qva_record& owner = Given(record, "record");
    const RecordField& list = FieldOf(owner, field, {FieldType::List});
    if (index < 0 || static_cast<std::size_t>(index) >= list.count(owner.object))
      Fail(QVA_INVALID_ARGUMENT, "the list has no element " + std::to_string(index));
    void* const object = list.element(owner.object, static_cast<std::size_t>(index));
    auto& handle = owner.elements[{field, index}];
    if (handle == nullptr) handle = std::make_unique<qva_record>(*list.elements, object);
    Given(element, "element") = handle.get();
  });
}
