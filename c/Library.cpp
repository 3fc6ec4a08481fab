#include "c/Handles.h"
#include "platform/CodePage.h"
#include "text/Phrases.h"
#include "text/Utf8.h"

#include <algorithm>
#include <new>

namespace qv::c {
namespace {

thread_local std::string lastError;

constexpr std::pair<qva_status, const char*> kStatusTexts[] = {
    {QVA_OK, "done"},
    {QVA_END, "no more records"},
    {QVA_CANCELLED, "cancelled"},
    {QVA_NOT_AVAILABLE, "not available"},
    {QVA_SHORT_BUFFER, "the buffer is too small"},
    {QVA_INVALID_ARGUMENT, "invalid argument"},
    {QVA_NOT_FOUND, "not found"},
    {QVA_NOT_ENCODABLE, "a character that the system's code page does not have"},
    {QVA_TOO_LONG, "too long for the field"},
    {QVA_FILE_ERROR, "the file cannot be read or written"},
    {QVA_FILE_TYPE, "the file type is none of .txt, .csv and .xls"},
    {QVA_OUT_OF_MEMORY, "out of memory"},
    {QVA_INTERNAL_ERROR, "internal error"},
};

/// The types of the elements of lists follow the kinds.
const std::vector<const RecordType*>& Types() {
  static const std::vector<const RecordType*> types = [] {
    std::vector<const RecordType*> all;
    for (const RecordType& kind : RecordTypes()) all.push_back(&kind);
    for (const RecordType& kind : RecordTypes())
      for (const RecordField& field : kind.fields)
        if (field.type == FieldType::List) all.push_back(field.elements);
    return all;
  }();
  return types;
}

std::int32_t AbilitiesOf(RecordKind kind) {
  const std::int32_t reads = IsImported(kind) ? QVA_CAN_READ : 0;
  const std::int32_t writes = IsExported(kind) ? QVA_CAN_WRITE | QVA_CAN_WRITE_WORKBOOK : 0;
  // A kind that is only read is not read from workbooks.
  return reads | writes | (reads != 0 && writes != 0 ? QVA_CAN_READ_WORKBOOK : 0);
}

// In the order of FieldType.
constexpr std::int32_t kTypeNumbers[] = {QVA_TEXT, QVA_INTEGER, QVA_NUMBER, QVA_NUMBER, QVA_FLAG, QVA_LIST};

}  // namespace

void Fail(qva_status status, std::string sentence) { throw Failure{status, std::move(sentence)}; }

qva_status Failed(qva_status status, std::string_view sentence) noexcept {
  try {
    lastError.assign(sentence);
  } catch (...) {
    lastError.clear();
  }
  return status;
}

void Begin() noexcept { lastError.clear(); }

qva_status StatusOfException() noexcept {
  try {
    throw;
  } catch (const Failure& failure) {
    return Failed(failure.status, failure.sentence);
  } catch (const std::bad_alloc&) {
    return Failed(QVA_OUT_OF_MEMORY, "out of memory");
  } catch (const std::exception& error) {
    return Failed(QVA_INTERNAL_ERROR, error.what());
  } catch (...) {
    return Failed(QVA_INTERNAL_ERROR, "an exception of an unknown type");
  }
}

qva_status GiveText(std::string_view utf8, char* buffer, std::int32_t size, std::int32_t* needed) {
  if (needed != nullptr) *needed = static_cast<std::int32_t>(utf8.size());
  if (buffer == nullptr || size < 0 || static_cast<std::size_t>(size) <= utf8.size())
    return Failed(QVA_SHORT_BUFFER,
                  "the text needs a buffer of " + std::to_string(utf8.size() + 1) + " bytes");
  utf8.copy(buffer, utf8.size());
  buffer[utf8.size()] = '\0';
  return QVA_OK;
}

std::string FromHost(const char* utf8, const std::string& what) {
  const std::string_view text = &Given(utf8, what.c_str());
  if (IsAscii(text)) return std::string(text);
  std::string converted = FromUtf8(text);
  if (ToUtf8(converted) != text)
    Fail(QVA_NOT_ENCODABLE,
         what + " has a character that the system's code page does not have: " + Quoted(text));
  return converted;
}

std::size_t IndexIn(std::size_t count, std::int32_t index, std::string_view absent) {
  if (index < 0 || static_cast<std::size_t>(index) >= count)
    Fail(QVA_INVALID_ARGUMENT, std::string(absent) + std::to_string(index));
  return static_cast<std::size_t>(index);
}

const RecordType& TypeOf(std::int32_t type) {
  return *Types()[IndexIn(Types().size(), type, "there is no record type ")];
}

std::int32_t NumberOf(const RecordType& type) {
  const auto& types = Types();
  return static_cast<std::int32_t>(std::find(types.begin(), types.end(), &type) - types.begin());
}

const RecordField& FieldOf(const RecordType& type, std::int32_t field) {
  if (field < 0 || static_cast<std::size_t>(field) >= type.fields.size())
    Fail(QVA_INVALID_ARGUMENT, std::string(type.name) + " has no field " + std::to_string(field));
  return type.fields[static_cast<std::size_t>(field)];
}

RecordKind KindOf(std::int32_t kind) {
  return static_cast<RecordKind>(IndexIn(QVA_KIND_COUNT, kind, "there is no kind "));
}

}  // namespace qv::c

using namespace qv::c;

const char* QVA_CALL qva_status_text(qva_status status) {
  for (const auto& [known, text] : kStatusTexts)
    if (known == status) return text;
  return "unknown status";
}

const char* QVA_CALL qva_last_error(void) { return lastError.c_str(); }

const char* QVA_CALL qva_version(void) { return QVASSEMBLY_VERSION; }

int32_t QVA_CALL qva_abi_version(void) { return QVA_ABI_VERSION; }

qva_status QVA_CALL qva_kind_name(int32_t type, char* buffer, int32_t size, int32_t* needed) {
  return Guarded([&] { return GiveText(TypeOf(type).name, buffer, size, needed); });
}

qva_status QVA_CALL qva_kind_find(const char* name, int32_t* kind) {
  return Guarded([&] {
    const std::string_view wanted = &Given(name, "name");
    const auto kinds = qv::RecordTypes();
    const auto found = std::ranges::find(kinds, wanted, &qv::RecordType::name);
    if (found == kinds.end()) Fail(QVA_NOT_FOUND, "there is no kind " + qv::Quoted(wanted));
    Give(kind, "kind", found - kinds.begin());
  });
}

qva_status QVA_CALL qva_kind_abilities(int32_t kind, int32_t* abilities) {
  return Guarded([&] { Given(abilities, "abilities") = AbilitiesOf(KindOf(kind)); });
}

qva_status QVA_CALL qva_field_count(int32_t type, int32_t* count) {
  return Guarded([&] { Give(count, "count", TypeOf(type).fields.size()); });
}

qva_status QVA_CALL qva_field_find(int32_t type, const char* name, int32_t* field) {
  return Guarded([&] {
    const qv::RecordType& record = TypeOf(type);
    const qv::RecordField* const found = qv::FindField(record, &Given(name, "name"));
    if (found == nullptr) Fail(QVA_NOT_FOUND, std::string(record.name) + " has no field " + qv::Quoted(name));
    Give(field, "field", found - record.fields.data());
  });
}

qva_status QVA_CALL qva_field_name(int32_t type, int32_t field, char* buffer, int32_t size, int32_t* needed) {
  return Guarded([&] { return GiveText(FieldOf(TypeOf(type), field).stem, buffer, size, needed); });
}

qva_status QVA_CALL qva_field_keyword(int32_t type, int32_t field, char* buffer, int32_t size,
                                      int32_t* needed) {
  return Guarded(
      [&] { return GiveText(FieldOf(TypeOf(type), field).columns[0].keyword, buffer, size, needed); });
}

qva_status QVA_CALL qva_field_type(int32_t type, int32_t field, int32_t* field_type) {
  return Guarded([&] {
    Given(field_type, "field_type") = kTypeNumbers[static_cast<int>(FieldOf(TypeOf(type), field).type)];
  });
}

qva_status QVA_CALL qva_field_capacity(int32_t type, int32_t field, int32_t* capacity) {
  return Guarded([&] { Give(capacity, "capacity", FieldOf(TypeOf(type), field).capacity); });
}

qva_status QVA_CALL qva_field_elements(int32_t type, int32_t field, int32_t* element_type) {
  return Guarded([&] {
    const qv::RecordField& list = FieldOf(TypeOf(type), field);
    if (list.type != qv::FieldType::List) Fail(QVA_INVALID_ARGUMENT, std::string(list.stem) + " is no list");
    Given(element_type, "element_type") = NumberOf(*list.elements);
  });
}
