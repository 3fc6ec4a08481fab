#include "fuzz/ByteSource.h"
#include "support/FakeFileSystem.h"

#include <QVAssemblyFile/qvassembly.h>

#include <array>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Calls of the C interface in any order, with live and null handles, wrong indexes and short buffers: every
// one gives a status with its sentence, no text is cut, no buffer is written behind its end, and a batch
// holds what the records hold.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr char kUntouched = '\x5A';
constexpr const char* kFiles[] = {"a.csv", "b.txt", "formats.xml", "missing.csv", "list.pdf"};

// The argument order of all functions that give a text.
using GiveText = std::function<qva_status(char* buffer, std::int32_t size, std::int32_t* needed)>;

class Host {
 public:
  explicit Host(ByteSource& source) : source_(source) {}
  ~Host() {
    for (qva_reader*& reader : readers_) qva_reader_close(reader);
    for (qva_writer*& writer : writers_) qva_writer_abandon(writer);
    for (qva_record*& record : records_) qva_record_destroy(record);
    for (qva_manager*& manager : managers_) qva_manager_destroy(manager);
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  void Step() {
    static constexpr void (Host::*kSteps[])() = {
        &Host::Create, &Host::Destroy,     &Host::LoadFormats, &Host::AskFormats, &Host::SelectFormat,
        &Host::Store,  &Host::Open,        &Host::Next,        &Host::Fetch,      &Host::Close,
        &Host::Import, &Host::OpenToWrite, &Host::Put,         &Host::EndWriting, &Host::CreateRecord,
        &Host::Clone,  &Host::Change,      &Host::ChangeList,  &Host::Remarks,    &Host::AskKinds,
        &Host::Listen};
    (this->*kSteps[source_.Below(std::size(kSteps))])();
  }

 private:
  template <class Handle, std::size_t Count>
  Handle*& Slot(std::array<Handle*, Count>& slots) {
    return slots[source_.Below(Count)];
  }

  // Mostly a small number, now and then a wild one.
  std::int32_t Number() {
    const unsigned byte = source_.Byte();
    return byte < 240 ? static_cast<std::int32_t>(byte % 48) - 2
                      : static_cast<std::int32_t>(byte * 2654435761u + source_.Byte());
  }
  std::int32_t Kind() { return static_cast<std::int32_t>(source_.Below(14)) - 1; }
  const char* File() { return kFiles[source_.Below(std::size(kFiles))]; }
  const char* Text() {
    text_ = source_.Text();
    return source_.Below(16) == 0 ? nullptr : text_.c_str();
  }
  // Where a result goes.
  template <class Value>
  Value* Into(Value& value) {
    return source_.Below(32) == 0 ? nullptr : &value;
  }

  static bool Checked(qva_status status) {
    Require(status >= QVA_OK && status <= QVA_OUT_OF_MEMORY);
    Require((*qva_last_error() == '\0') == (status == QVA_OK || status == QVA_END));
    return status == QVA_OK;
  }

  void TakeText(const GiveText& give) {
    char buffer[64];
    std::memset(buffer, kUntouched, sizeof buffer);
    const auto size = static_cast<std::int32_t>(source_.Below(sizeof buffer));
    std::int32_t needed = -1;
    const qva_status status = give(source_.Below(32) == 0 ? nullptr : buffer, size, &needed);
    Checked(status);
    if (status == QVA_OK) {
      Require(needed < size && std::strlen(buffer) <= static_cast<std::size_t>(needed) &&
              buffer[needed] == '\0' && buffer[needed + 1] == kUntouched);
    } else {
      Require(buffer[0] == kUntouched && (status == QVA_SHORT_BUFFER) == (needed >= 0));
    }
  }

  void Create() {
    qva_manager*& slot = Slot(managers_);
    if (slot == nullptr) Checked(qva_manager_create(&slot));
    Checked(qva_manager_create(nullptr));
  }

  // The contract: readers and writers go before their manager.
  void Destroy() {
    const std::size_t index = source_.Below(kManagers);
    for (std::size_t at = 0; at < kStreams; ++at) {
      if (readerManagers_[at] == index) qva_reader_close(std::exchange(readers_[at], nullptr));
      if (writerManagers_[at] == index) qva_writer_abandon(std::exchange(writers_[at], nullptr));
    }
    qva_manager_destroy(std::exchange(managers_[index], nullptr));
  }

  void LoadFormats() { Checked(qva_formats_load(Slot(managers_), source_.Flag() ? "formats.xml" : File())); }

  void AskFormats() {
    qva_manager* const manager = Slot(managers_);
    const std::int32_t format = Number(), column = Number();
    std::int32_t value = 0;
    Checked(qva_formats_count(manager, Into(value)));
    Checked(qva_format_start_line(manager, format, Into(value)));
    Checked(qva_format_is_part_name_only(manager, format, Into(value)));
    Checked(qva_format_column_count(manager, format, Into(value)));
    Checked(qva_format_current(manager, Into(value)));
    Checked(qva_formats_find(manager, Text(), Into(value)));
    TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_format_name(manager, format, buffer, size, needed);
    });
    TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_format_column(manager, format, column, buffer, size, needed);
    });
  }

  void SelectFormat() {
    static constexpr const char* kNames[] = {"Parts", "Stock", "none"};
    Checked(qva_format_select(Slot(managers_), source_.Flag() ? Text() : kNames[source_.Below(3)]));
  }

  void Store() {
    qva_manager* const manager = Slot(managers_);
    const char* const file = File();
    if (source_.Flag()) Checked(qva_stored_format_set(manager, file, Text()));
    TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_stored_format_get(manager, file, buffer, size, needed);
    });
  }

  void Open() {
    const std::size_t at = source_.Below(kStreams);
    if (readers_[at] != nullptr) return;
    readerManagers_[at] = source_.Below(kManagers);
    Checked(qva_reader_open(managers_[readerManagers_[at]], Kind(), File(), &readers_[at]));
    std::int32_t count = 0;
    Checked(qva_reader_header_count(readers_[at], Into(count)));
    const std::int32_t header = Number();
    TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_reader_header(readers_[at], header, buffer, size, needed);
    });
  }

  void Next() {
    qva_record* record = nullptr;
    if (Checked(qva_reader_next(Slot(readers_), Into(record))) && record != nullptr) Use(record);
  }

  void Fetch() {
    const std::size_t at = source_.Below(kStreams);
    constexpr std::int32_t kRows = 3, kFields = 4;
    std::int32_t fields[kFields], records = -1;
    for (std::int32_t& field : fields) field = static_cast<std::int32_t>(source_.Below(24)) - 1;
    std::int64_t values[kFields][2 * kRows + 1];
    for (auto& array : values) array[2 * kRows] = kGuard;
    char texts[40];
    void* const arrays[] = {values[0], values[1], values[2], source_.Below(32) == 0 ? nullptr : values[3]};
    const auto room = static_cast<std::int64_t>(source_.Below(sizeof texts));
    const qva_status status = qva_reader_fetch(readers_[at], fields, Count(kFields), Count(kRows), arrays,
                                               texts, room, Into(records));
    Checked(status);
    Require(status != QVA_OK || (records > 0 && records <= kRows));
    for (const auto& array : values) Require(array[2 * kRows] == kGuard);
  }
  std::int32_t Count(std::int32_t most) {
    return static_cast<std::int32_t>(source_.Below(static_cast<unsigned>(most) + 1));
  }

  void Close() { qva_reader_close(std::exchange(Slot(readers_), nullptr)); }

  // What is read once as a list is read in batches, too.
  void Import() {
    qva_manager* const manager = Slot(managers_);
    const std::int32_t kind = Kind();
    const char* const file = File();
    std::int32_t count = 0;
    qva_record* record = nullptr;
    const bool isRead = Checked(qva_import(manager, kind, file, &count));
    Checked(qva_import_record(manager, Number(), Into(record)));
    if (!isRead) return;
    std::vector<std::string> held;
    for (std::int32_t index = 0; index < count; ++index) {
      Require(qva_import_record(manager, index, &record) == QVA_OK);
      held.push_back(FirstTextOf(kind, record));
    }
    const auto fetched = Fetched(manager, kind, file);
    Require(!fetched || *fetched == held);
  }

  static std::int32_t FirstTextField(std::int32_t kind) {
    std::int32_t field = 0, type = QVA_LIST;
    while (qva_field_type(kind, field, &type) == QVA_OK && type != QVA_TEXT) ++field;
    return field;
  }

  static std::string FirstTextOf(std::int32_t kind, const qva_record* record) {
    std::int32_t needed = 0;
    qva_record_get_text(record, FirstTextField(kind), nullptr, 0, &needed);
    std::string text(static_cast<std::size_t>(needed) + 1, '\0');
    Require(qva_record_get_text(record, FirstTextField(kind), text.data(), needed + 1, &needed) == QVA_OK);
    text.pop_back();
    return text;
  }

  // Nothing when the file failed or the work was cancelled.
  static std::optional<std::vector<std::string>> Fetched(qva_manager* manager, std::int32_t kind,
                                                         const char* file) {
    qva_reader* reader = nullptr;
    if (!Checked(qva_reader_open(manager, kind, file, &reader))) return std::nullopt;
    std::vector<std::string> texts;
    const std::int32_t field = FirstTextField(kind);
    std::int64_t places[4];
    void* const arrays[] = {places};
    std::vector<char> bytes(8);  // grows until a text fits
    std::int32_t records = 0;
    qva_status status;
    while ((status = qva_reader_fetch(reader, &field, 1, 2, arrays, bytes.data(),
                                      static_cast<std::int64_t>(bytes.size()), &records)) == QVA_OK ||
           status == QVA_SHORT_BUFFER) {
      for (std::int32_t row = 0; row < records; ++row)
        texts.emplace_back(bytes.data() + places[2 * row], static_cast<std::size_t>(places[2 * row + 1]));
      if (status == QVA_SHORT_BUFFER) bytes.resize(2 * bytes.size());
    }
    qva_reader_close(reader);
    if (status != QVA_END) return std::nullopt;
    return texts;
  }

  void OpenToWrite() {
    const std::size_t at = source_.Below(kStreams);
    if (writers_[at] != nullptr) return;
    writerManagers_[at] = source_.Below(kManagers);
    Checked(qva_writer_open(managers_[writerManagers_[at]], Kind(), File(), &writers_[at]));
  }

  void Put() { Checked(qva_writer_put(Slot(writers_), Slot(records_))); }

  void EndWriting() {
    qva_writer* const writer = std::exchange(Slot(writers_), nullptr);
    if (source_.Flag())
      Checked(qva_writer_commit(writer));
    else
      qva_writer_abandon(writer);
  }

  void CreateRecord() {
    qva_record*& slot = Slot(records_);
    qva_record_destroy(std::exchange(slot, nullptr));
    Checked(qva_record_create(Kind(), &slot));
  }

  void Clone() {
    qva_record* copy = nullptr;
    Checked(qva_record_clone(Slot(records_), Into(copy)));
    qva_record*& slot = Slot(records_);
    qva_record_destroy(std::exchange(slot, copy));
  }

  void Change() { Use(Slot(records_)); }

  // All that can be done with a record that may belong to another handle.
  void Use(qva_record* record) {
    const std::int32_t field = Number();
    std::int32_t value = 0;
    double number = 0;
    Checked(qva_record_type(record, Into(value)));
    Checked(qva_record_set_text(record, field, Text()));
    Checked(qva_record_set_integer(record, field, Number()));
    Checked(qva_record_set_number(record, field, 1e30 * Number() * Number()));
    Checked(qva_record_set_flag(record, field, Number()));
    Checked(qva_record_get_integer(record, field, Into(value)));
    Checked(qva_record_get_number(record, field, Into(number)));
    Checked(qva_record_get_flag(record, field, Into(value)));
    TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_record_get_text(record, field, buffer, size, needed);
    });
  }

  void ChangeList() {
    qva_record* const record = Slot(records_);
    // A large list is a matter of memory.
    const std::int32_t field = Number(), size = static_cast<std::int32_t>(source_.Below(20)) - 1;
    std::int32_t count = 0;
    qva_record* element = nullptr;
    const bool isResized = Checked(qva_record_list_resize(record, field, size));
    Require(!isResized || (qva_record_list_size(record, field, &count) == QVA_OK && count == size));
    if (!Checked(qva_record_list_element(record, field, Number(), Into(element))) || element == nullptr)
      return;
    Use(element);
    qva_record_destroy(element);  // belongs to the list, so it stays
    Use(element);
  }

  void Remarks() {
    qva_manager* const manager = Slot(managers_);
    std::int32_t count = 0;
    std::int64_t lost = 0;
    Checked(qva_diagnostics_count(manager, Into(count), Into(lost)));
    const std::int32_t index = Number(), which = Number();
    Checked(qva_diagnostic_line(manager, index, Into(lost)));
    TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_diagnostic_text(manager, index, which, buffer, size, needed);
    });
    if (source_.Flag()) Checked(qva_diagnostics_clear(manager));
  }

  void AskKinds() {
    const std::int32_t kind = Kind(), field = Number();
    std::int32_t value = 0;
    Checked(qva_kind_find(Text(), Into(value)));
    Checked(qva_kind_abilities(kind, Into(value)));
    Checked(qva_field_count(kind, Into(value)));
    Checked(qva_field_find(kind, Text(), Into(value)));
    Checked(qva_field_type(kind, field, Into(value)));
    Checked(qva_field_capacity(kind, field, Into(value)));
    Checked(qva_field_elements(kind, field, Into(value)));
    static constexpr decltype(&qva_field_name) kTexts[] = {qva_field_name, qva_field_keyword};
    for (const auto function : kTexts)
      TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
        return function(kind, field, buffer, size, needed);
      });
    TakeText([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_kind_name(kind, buffer, size, needed);
    });
    Require(*qva_status_text(Number()) != '\0');
  }

  void Listen() {
    qva_manager* const manager = Slot(managers_);
    const auto onProgress = [](void* context, std::int64_t, std::int64_t) QVA_CALL -> std::int32_t {
      return static_cast<Host*>(context)->source_.Below(8) == 0 ? 0 : 1;
    };
    const auto onDiagnostic = [](void*, const char* file, std::int64_t line, const char* column,
                                 const char* code, const char* text, const char* stored, const char* message)
                                  QVA_CALL {
                                    Require(line >= 0);
                                    for (const char* part : {file, column, code, text, stored, message})
                                      Require(part != nullptr);
                                    Require(*code != '\0' && *message != '\0');
                                  };
    Checked(qva_manager_on_progress(manager, source_.Flag() ? +onProgress : nullptr, this));
    Checked(qva_manager_on_diagnostic(manager, source_.Flag() ? +onDiagnostic : nullptr, this));
    Checked(qva_manager_on_message(manager, source_.Flag() ? +[](void*, const char*) {} : nullptr, this));
  }

  static constexpr std::size_t kManagers = 3, kStreams = 3;
  static constexpr std::int64_t kGuard = 0x5A5A5A5A5A5A5A5A;

  ByteSource& source_;
  std::string text_;
  std::array<qva_manager*, kManagers> managers_{};
  std::array<qva_reader*, kStreams> readers_{};
  std::array<qva_writer*, kStreams> writers_{};
  std::array<std::size_t, kStreams> readerManagers_{}, writerManagers_{};
  std::array<qva_record*, 4> records_{};
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  FakeFileSystem files;
  files.Contents["formats.xml"] =
      "<CSVOptionSetting Current=\"Parts\"><OptionForm Name=\"Parts\" Line=\"1\" Delimiters=\"Comma\" "
      "Qualifier=\"0\"><PartName Order=\"0\"/><PartQuantity Order=\"1\"/></OptionForm></CSVOptionSetting>";
  files.Contents["a.csv"] = source.Text();
  files.Contents["b.txt"] = source.Text();
  if (source.Below(8) == 0) files.Contents["formats.xml"] = source.Text();
  if (source.Below(4) == 0) files.FailAt(static_cast<int>(source.Byte()));
  Host host(source);
  while (!source.IsEmpty()) host.Step();
  return 0;
}
