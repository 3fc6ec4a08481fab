#include "c/Handles.h"
#include "platform/CodePage.h"
#include "text/Utf8.h"

#include <cstring>
#include <utility>

using namespace qv::c;
using qv::FieldType;
using qv::RecordField;

namespace {

/// The kind of that number. Fails where the host cannot do with it what `canDo` tells, but only `otherwise`.
RecordKind KindFor(bool (*canDo)(RecordKind kind), std::int32_t number, const char* otherwise) {
  const RecordKind kind = KindOf(number);
  if (!canDo(kind))
    Fail(QVA_NOT_AVAILABLE,
         "records of the kind " + std::string(qv::RecordTypeOf(kind).name) + " are only ever " + otherwise);
  return kind;
}

/// Opens a file. A message box about its type becomes a status of its own.
template <class Stream>
std::unique_ptr<Stream> Open(const Listening& listening, qva_manager& manager, RecordKind kind,
                             const char* path) {
  const std::string file = FromHost(path, "path");
  manager.imported.clear();
  auto stream = std::make_unique<Stream>(manager.manager, kind, file.c_str());
  if (stream->HasFailed() && manager.failure == "File Format Error!")
    Fail(QVA_FILE_TYPE, "the file type is none of .txt, .csv and .xls; save it as one of these");
  listening.Check();
  if (stream->HasFailed()) Fail(QVA_FILE_ERROR, "the file cannot be used");
  return stream;
}

void CheckRead(const Listening& listening, const qva_reader& reader) {
  listening.Check();
  if (reader.reader->HasFailed()) Fail(QVA_FILE_ERROR, "reading stopped before the end of the file");
}

std::vector<std::string> HeadersOf(CAssemblyFileMgr& manager) {
  std::vector<std::string> headers;
  manager.GetPartHeaders(headers);
  for (std::string& header : headers) header = qv::ToUtf8(header);
  return headers;
}

/// Reads the next record into the reader's; false at the end of the file.
bool Next(qva_reader& reader) {
  if (std::exchange(reader.isKept, false)) return true;
  if (!reader.record.elements.empty()) reader.record.elements.clear();
  reader.record.object = reader.reader->Next();
  return reader.record.object != nullptr;
}

/// The buffer that the texts of a batch go into.
struct Texts {
  char* bytes;
  std::int64_t size;
  std::int64_t used = 0;
};

/// Copies a text of one to two words by both its ends; false when it is not all ASCII.
template <class Word>
bool CopyEnds(std::string_view text, char* to) {
  Word first, last;
  const std::size_t rest = text.size() - sizeof(Word);
  std::memcpy(&first, text.data(), sizeof(Word));
  std::memcpy(&last, text.data() + rest, sizeof(Word));
  std::memcpy(to, &first, sizeof(Word));
  std::memcpy(to + rest, &last, sizeof(Word));
  return ((first | last) & static_cast<Word>(0x8080808080808080)) == 0;
}

/// Most texts are short, and the time of a batch goes into them.
bool CopyAscii(std::string_view text, char* to) {
  if (text.size() > 16) {
    text.copy(to, text.size());
    return qv::IsAscii(text);
  }
  if (text.size() >= 8) return CopyEnds<std::uint64_t>(text, to);
  if (text.size() >= 4) return CopyEnds<std::uint32_t>(text, to);
  unsigned seen = 0;
  for (const char c : text) seen |= static_cast<unsigned char>(*to++ = c);
  return (seen & 0x80) == 0;
}

/// Appends a text and notes its place; false when it does not fit.
bool PutText(std::string_view text, std::int64_t* place, Texts& texts) {
  const auto room = static_cast<std::size_t>(texts.size - texts.used);
  std::size_t length = text.size();
  if (length > room || !CopyAscii(text, texts.bytes + texts.used)) {
    const std::string converted = qv::ToUtf8(text);
    length = converted.size();
    if (length > room) return false;
    converted.copy(texts.bytes + texts.used, length);
  }
  place[0] = texts.used;
  place[1] = static_cast<std::int64_t>(length);
  texts.used += place[1];
  return true;
}

/// A field of a batch.
struct BatchColumn {
  const RecordField* field;
  void* array;
  std::ptrdiff_t offset = 0;  // of a number or flag from the start of a record
};

template <class Value, class Stored>
void Store(const BatchColumn& column, const void* object, std::size_t row) {
  const void* const at = static_cast<const char*>(object) + column.offset;
  static_cast<Stored*>(column.array)[row] = static_cast<Stored>(*static_cast<const Value*>(at));
}

/// Puts a value of the record at its place in the array; false when its text does not fit.
bool PutValue(const BatchColumn& column, const void* object, std::size_t row, Texts& texts) {
  switch (column.field->type) {
    case FieldType::Int:
      Store<int, std::int32_t>(column, object, row);
      return true;
    case FieldType::Bool:
      Store<bool, std::int32_t>(column, object, row);
      return true;
    case FieldType::Float:
      Store<float, double>(column, object, row);
      return true;
    case FieldType::Double:
      Store<double, double>(column, object, row);
      return true;
    default:
      return PutText(column.field->text(object), static_cast<std::int64_t*>(column.array) + 2 * row, texts);
  }
}

bool PutRow(const std::vector<BatchColumn>& columns, const void* object, std::size_t row, Texts& texts) {
  const std::int64_t before = texts.used;
  for (const BatchColumn& column : columns)
    if (!PutValue(column, object, row, texts)) {
      texts.used = before;
      return false;
    }
  return true;
}

std::vector<BatchColumn> ColumnsOf(const qva_reader& reader, const std::int32_t* fields, std::int32_t count,
                                   void* const* arrays) {
  std::vector<BatchColumn> columns;
  const qv::RecordType& type = *reader.record.type;
  const qv::AnyRecord sample(type);
  const void* const start = sample.Pointer();
  for (std::int32_t index = 0; index < count; ++index) {
    const RecordField& field = FieldOf(type, fields[index]);
    if (field.type == FieldType::List)
      Fail(QVA_INVALID_ARGUMENT, "the field " + std::string(field.stem) + " is a list");
    if (arrays[index] == nullptr) Fail(QVA_INVALID_ARGUMENT, "an array is null");
    columns.push_back({&field, arrays[index],
                       static_cast<const char*>(field.address(start)) - static_cast<const char*>(start)});
  }
  return columns;
}

/// Fills the arrays; returns how many records they got.
std::int32_t Fetch(qva_reader& reader, const std::vector<BatchColumn>& columns, std::int32_t max,
                   Texts texts) {
  std::int32_t row = 0;
  for (; row < max && Next(reader); ++row)
    if (!PutRow(columns, reader.record.object, static_cast<std::size_t>(row), texts)) {
      reader.isKept = true;
      break;
    }
  return row;
}

/// What closing has to say goes to the manager.
template <class Handle>
void Close(Handle* handle) {
  if (handle == nullptr) return;
  const Listening listening(handle->manager);
  delete handle;
}

}  // namespace

qva_status QVA_CALL qva_reader_open(qva_manager* manager, int32_t kind, const char* path,
                                    qva_reader** reader) {
  return Guarded([&] {
    Given(reader, "reader");
    const Listening listening(Given(manager, "manager"));
    const RecordKind recordKind = KindFor(IsImported, kind, "written");
    auto opened = Open<AnyRecordReader>(listening, *manager, recordKind, path);
    *reader = new qva_reader{
        *manager, std::move(opened), HeadersOf(manager->manager), {qv::RecordTypeOf(recordKind), nullptr}};
  });
}

qva_status QVA_CALL qva_reader_header_count(qva_reader* reader, int32_t* count) {
  return Guarded([&] { Give(count, "count", Given(reader, "reader").headers.size()); });
}

qva_status QVA_CALL qva_reader_header(qva_reader* reader, int32_t index, char* buffer, int32_t size,
                                      int32_t* needed) {
  return Guarded([&] {
    const auto& headers = Given(reader, "reader").headers;
    return GiveText(headers[IndexIn(headers.size(), index, "there is no header ")], buffer, size, needed);
  });
}

qva_status QVA_CALL qva_reader_next(qva_reader* reader, qva_record** record) {
  return Guarded([&]() -> qva_status {
    Given(record, "record") = nullptr;
    const Listening listening(Given(reader, "reader").manager);
    if (!Next(*reader)) {
      CheckRead(listening, *reader);
      return QVA_END;
    }
    *record = &reader->record;
    return QVA_OK;
  });
}

qva_status QVA_CALL qva_reader_fetch(qva_reader* reader, const int32_t* fields, int32_t field_count,
                                     int32_t max_records, void* const* arrays, char* texts,
                                     int64_t texts_size, int32_t* records) {
  return Guarded([&]() -> qva_status {
    Given(records, "records") = 0;
    const Listening listening(Given(reader, "reader").manager);
    Given(fields, "fields");
    Given(arrays, "arrays");
    if (field_count < 0 || max_records < 1 || texts_size < 0 || (texts == nullptr && texts_size > 0))
      Fail(QVA_INVALID_ARGUMENT, "a batch needs room for one record");
    const auto columns = ColumnsOf(*reader, fields, field_count, arrays);
    *records = Fetch(*reader, columns, max_records, {texts, texts_size});
    if (*records > 0) return QVA_OK;
    if (reader->isKept) return Failed(QVA_SHORT_BUFFER, "the texts of one record do not fit");
    CheckRead(listening, *reader);  // what was read before has been handed out
    return QVA_END;
  });
}

void QVA_CALL qva_reader_close(qva_reader* reader) { Close(reader); }

qva_status QVA_CALL qva_import(qva_manager* manager, int32_t kind, const char* path, int32_t* count) {
  return Guarded([&] {
    const Listening listening(Given(manager, "manager"));
    const RecordKind recordKind = KindFor(IsImported, kind, "written");
    Given(count, "count") = 0;
    const auto reader = Open<AnyRecordReader>(listening, *manager, recordKind, path);
    const qv::RecordType& type = qv::RecordTypeOf(recordKind);
    std::vector<std::unique_ptr<qva_record>> records;
    while (void* const record = reader->Next()) {
      auto& kept = records.emplace_back(std::make_unique<qva_record>(type));
      CopyRecord(type, kept->object, record);
    }
    listening.Check();
    manager->imported = std::move(records);
    *count = static_cast<int32_t>(manager->imported.size());
  });
}

qva_status QVA_CALL qva_import_record(qva_manager* manager, int32_t index, qva_record** record) {
  return Guarded([&] {
    const auto& records = Given(manager, "manager").imported;
    const std::size_t place = IndexIn(records.size(), index, "there is no record ");
    Given(record, "record") = records[place].get();
  });
}

qva_status QVA_CALL qva_writer_open(qva_manager* manager, int32_t kind, const char* path,
                                    qva_writer** writer) {
  return Guarded([&] {
    Given(writer, "writer");
    const Listening listening(Given(manager, "manager"));
    const RecordKind recordKind = KindFor(IsExported, kind, "read");
    auto opened = Open<AnyRecordWriter>(listening, *manager, recordKind, path);
    *writer = new qva_writer{*manager, qv::RecordTypeOf(recordKind), std::move(opened)};
  });
}

qva_status QVA_CALL qva_writer_put(qva_writer* writer, const qva_record* record) {
  return Guarded([&] {
    const Listening listening(Given(writer, "writer").manager);
    const qva_record& given = Given(record, "record");
    if (given.type != &writer->type)
      Fail(QVA_INVALID_ARGUMENT, "this is no record of the kind " + std::string(writer->type.name));
    if (writer->writer->Put(given.object)) return;
    listening.Check();
    Fail(QVA_FILE_ERROR, "the file cannot be written any more");
  });
}

qva_status QVA_CALL qva_writer_commit(qva_writer* writer) {
  return Guarded([&] {
    const std::unique_ptr<qva_writer> taken(&Given(writer, "writer"));
    const Listening listening(taken->manager);
    if (taken->writer->Commit()) return;
    listening.Check();
    Fail(QVA_FILE_ERROR, "the file was not written");
  });
}

void QVA_CALL qva_writer_abandon(qva_writer* writer) { Close(writer); }
