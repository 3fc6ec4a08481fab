#ifndef QVASSEMBLY_QVASSEMBLY_HPP
#define QVASSEMBLY_QVASSEMBLY_HPP

/// QVAssemblyFile for C++17 and any compiler: this header alone, on the C interface.
///
///   qva::Manager manager;
///   manager.loadFormats("AssemblyFormats.xml");
///   manager.selectFormat("orders");
///   qva::Writer out = other.write("list.txt", qva::Kind::Parts);
///   for (qva::Record& part : manager.read("parts.csv", qva::Kind::Parts)) {
///     part.set("PartQuantity", part.integer("PartQuantity") * 2);
///     out.put(part);
///   }
///   out.commit();
///
/// Texts are UTF-8. A failure is a qva::Error whose what() is a sentence for a person. Objects are moved, not
/// copied; one manager, with all that came from it, belongs to one thread at a time.

#include <QVAssemblyFile/qvassembly.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qva {

/// A call that failed: its status (QVA_…) and why.
class Error : public std::runtime_error {
 public:
  explicit Error(qva_status status) : std::runtime_error(SentenceOf(status)), status_(status) {}
  qva_status status() const noexcept { return status_; }

 private:
  static std::string SentenceOf(qva_status status) {
    const std::string sentence = qva_last_error();
    return sentence.empty() ? qva_status_text(status) : sentence;
  }
  qva_status status_;
};

enum class Kind : std::int32_t {
  Parts = QVA_PARTS,
  Tools = QVA_TOOLS,
  Materials = QVA_MATERIALS,
  Sheets = QVA_SHEETS,
  PartPrograms = QVA_PART_PROGRAMS,
  MaterialInventory = QVA_MATERIAL_INVENTORY,  ///< read only
  MaterialLibrary = QVA_MATERIAL_LIBRARY,      ///< read only
  JobProgress = QVA_JOB_PROGRESS,              ///< written only
};

/// One remark on what was not taken as it stood.
struct Diagnostic {
  std::string file;
  std::int64_t line = 0;  ///< 0: about the whole file
  std::string column;     ///< the column's keyword, or empty
  std::string code;       ///< a stable word such as "row-left-out"
  std::string text;       ///< as found
  std::string stored;     ///< what was made of it
  std::string message;    ///< a sentence for a person
};

namespace detail {

inline void Check(qva_status status) {
  if (status != QVA_OK) throw Error(status);
}

/// The text that `get(buffer, size, needed)` gives.
template <class Get>
std::string Text(Get get) {
  std::string text(63, '\0');
  std::int32_t needed = 0;
  qva_status status = get(&text[0], static_cast<std::int32_t>(text.size()) + 1, &needed);
  if (status == QVA_SHORT_BUFFER) {
    text.resize(static_cast<std::size_t>(needed));
    status = get(&text[0], needed + 1, &needed);
  }
  Check(status);
  text.resize(static_cast<std::size_t>(needed));
  return text;
}

template <class Value, class Get>
Value Number(Get get) {
  Value value{};
  Check(get(&value));
  return value;
}

}  // namespace detail

/// A record, or an element of a record's list. Fields are named, or given by their index (Record::field).
class Record {
 public:
  /// A fresh record of the kind.
  explicit Record(Kind kind) : isOwner_(true) {
    detail::Check(qva_record_create(static_cast<std::int32_t>(kind), &record_));
  }
  Record(Record&& other) noexcept
      : record_(std::exchange(other.record_, nullptr)), isOwner_(std::exchange(other.isOwner_, false)) {}
  Record& operator=(Record&& other) noexcept {
    std::swap(record_, other.record_);
    std::swap(isOwner_, other.isOwner_);
    return *this;
  }
  ~Record() {
    if (isOwner_) qva_record_destroy(record_);
  }

  /// A copy that outlives the reader or list of the original.
  Record clone() const {
    qva_record* copy = nullptr;
    detail::Check(qva_record_clone(record_, &copy));
    return Record(copy, true);
  }

  /// The index of a field, for those who name it more than once.
  std::int32_t field(const char* name) const {
    std::int32_t type = 0, index = 0;
    detail::Check(qva_record_type(record_, &type));
    detail::Check(qva_field_find(type, name, &index));
    return index;
  }

  std::string text(std::int32_t field) const {
    return detail::Text([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_record_get_text(record_, field, buffer, size, needed);
    });
  }
  std::int32_t integer(std::int32_t field) const {
    return detail::Number<std::int32_t>(
        [&](std::int32_t* v) { return qva_record_get_integer(record_, field, v); });
  }
  double number(std::int32_t field) const {
    return detail::Number<double>([&](double* v) { return qva_record_get_number(record_, field, v); });
  }
  bool flag(std::int32_t field) const {
    return detail::Number<std::int32_t>(
               [&](std::int32_t* v) { return qva_record_get_flag(record_, field, v); }) != 0;
  }
  std::string text(const char* name) const { return text(field(name)); }
  std::int32_t integer(const char* name) const { return integer(field(name)); }
  double number(const char* name) const { return number(field(name)); }
  bool flag(const char* name) const { return flag(field(name)); }

  void set(std::int32_t field, const std::string& text) {
    detail::Check(qva_record_set_text(record_, field, text.c_str()));
  }
  void set(std::int32_t field, const char* text) { detail::Check(qva_record_set_text(record_, field, text)); }
  void set(std::int32_t field, std::int32_t value) {
    detail::Check(qva_record_set_integer(record_, field, value));
  }
  void set(std::int32_t field, double value) { detail::Check(qva_record_set_number(record_, field, value)); }
  void set(std::int32_t field, bool value) { detail::Check(qva_record_set_flag(record_, field, value)); }
  template <class Value>
  void set(const char* name, const Value& value) {
    set(field(name), value);
  }

  /// The list of a list field: its size, and its elements, which belong to this record.
  std::int32_t listSize(const char* name) const {
    const std::int32_t index = field(name);
    return detail::Number<std::int32_t>(
        [&](std::int32_t* v) { return qva_record_list_size(record_, index, v); });
  }
  void resizeList(const char* name, std::int32_t size) {
    detail::Check(qva_record_list_resize(record_, field(name), size));
  }
  Record element(const char* name, std::int32_t index) {
    qva_record* element = nullptr;
    detail::Check(qva_record_list_element(record_, field(name), index, &element));
    return Record(element, false);
  }

  qva_record* handle() const noexcept { return record_; }

 private:
  friend class Reader;
  friend class Manager;
  Record(qva_record* record, bool isOwner) noexcept : record_(record), isOwner_(isOwner) {}

  qva_record* record_ = nullptr;
  bool isOwner_ = false;
};

/// Reads a file record by record; a range for `for`. A record is valid until the next one.
class Reader {
 public:
  Reader(Reader&& other) noexcept
      : reader_(std::exchange(other.reader_, nullptr)), record_(std::move(other.record_)) {}
  Reader& operator=(Reader&&) = delete;
  ~Reader() { qva_reader_close(reader_); }

  std::vector<std::string> headers() const {
    std::int32_t count = 0;
    detail::Check(qva_reader_header_count(reader_, &count));
    std::vector<std::string> headers;
    for (std::int32_t index = 0; index < count; ++index)
      headers.push_back(detail::Text([&](char* buffer, std::int32_t size, std::int32_t* needed) {
        return qva_reader_header(reader_, index, buffer, size, needed);
      }));
    return headers;
  }

  /// Null when there are no more.
  Record* next() {
    const qva_status status = qva_reader_next(reader_, &record_.record_);
    if (status == QVA_END) return nullptr;
    detail::Check(status);
    return &record_;
  }

  struct End {};
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Record;
    using difference_type = std::ptrdiff_t;
    using pointer = Record*;
    using reference = Record&;

    explicit Iterator(Reader& reader) : reader_(&reader), record_(reader.next()) {}
    Record& operator*() const { return *record_; }
    Record* operator->() const { return record_; }
    Iterator& operator++() {
      record_ = reader_->next();
      return *this;
    }
    bool operator!=(End) const { return record_ != nullptr; }
    bool operator==(End) const { return record_ == nullptr; }

   private:
    Reader* reader_;
    Record* record_;
  };
  Iterator begin() { return Iterator(*this); }
  End end() const { return {}; }

  qva_reader* handle() const noexcept { return reader_; }

 private:
  friend class Manager;
  explicit Reader(qva_reader* reader) noexcept : reader_(reader), record_(nullptr, false) {}

  qva_reader* reader_;
  Record record_;
};

/// Writes a file record by record. Without commit() nothing is written, and an existing file stays.
class Writer {
 public:
  Writer(Writer&& other) noexcept : writer_(std::exchange(other.writer_, nullptr)) {}
  Writer& operator=(Writer&&) = delete;
  ~Writer() { qva_writer_abandon(writer_); }

  void put(const Record& record) { detail::Check(qva_writer_put(writer_, record.handle())); }
  void commit() { detail::Check(qva_writer_commit(std::exchange(writer_, nullptr))); }

 private:
  friend class Manager;
  explicit Writer(qva_writer* writer) noexcept : writer_(writer) {}

  qva_writer* writer_;
};

/// Formats, and the files that are read and written with them.
class Manager {
 public:
  using OnProgress = std::function<bool(std::int64_t done, std::int64_t total)>;

  Manager() {
    qva_manager* manager = nullptr;
    detail::Check(qva_manager_create(&manager));
    manager_.reset(manager);
  }

  void loadFormats(const std::string& path) { detail::Check(qva_formats_load(manager_.get(), path.c_str())); }
  std::vector<std::string> formats() const {
    std::int32_t count = 0;
    detail::Check(qva_formats_count(manager_.get(), &count));
    std::vector<std::string> names;
    for (std::int32_t index = 0; index < count; ++index) names.push_back(NameOf(index));
    return names;
  }
  std::string currentFormat() const {
    std::int32_t index = 0;
    detail::Check(qva_format_current(manager_.get(), &index));
    return NameOf(index);
  }
  void selectFormat(const std::string& name) {
    detail::Check(qva_format_select(manager_.get(), name.c_str()));
  }

  /// The name of a format that the file carries; empty where it carries none.
  std::string storedFormat(const std::string& path) const {
    return detail::Text([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_stored_format_get(manager_.get(), path.c_str(), buffer, size, needed);
    });
  }
  void storeFormat(const std::string& path, const std::string& name) {
    detail::Check(qva_stored_format_set(manager_.get(), path.c_str(), name.c_str()));
  }

  Reader read(const std::string& path, Kind kind) {
    qva_reader* reader = nullptr;
    detail::Check(qva_reader_open(manager_.get(), static_cast<std::int32_t>(kind), path.c_str(), &reader));
    return Reader(reader);
  }
  Writer write(const std::string& path, Kind kind) {
    qva_writer* writer = nullptr;
    detail::Check(qva_writer_open(manager_.get(), static_cast<std::int32_t>(kind), path.c_str(), &writer));
    return Writer(writer);
  }

  /// The remarks since the last call.
  std::vector<Diagnostic> takeDiagnostics() {
    std::int32_t count = 0;
    detail::Check(qva_diagnostics_count(manager_.get(), &count, nullptr));
    std::vector<Diagnostic> diagnostics(static_cast<std::size_t>(count));
    for (std::int32_t index = 0; index < count; ++index) {
      Diagnostic& diagnostic = diagnostics[static_cast<std::size_t>(index)];
      detail::Check(qva_diagnostic_line(manager_.get(), index, &diagnostic.line));
      std::string* const texts[] = {&diagnostic.file, &diagnostic.column, &diagnostic.code,
                                    &diagnostic.text, &diagnostic.stored, &diagnostic.message};
      for (std::int32_t which = QVA_DIAGNOSTIC_FILE; which <= QVA_DIAGNOSTIC_MESSAGE; ++which)
        *texts[which] = detail::Text([&](char* buffer, std::int32_t size, std::int32_t* needed) {
          return qva_diagnostic_text(manager_.get(), index, which, buffer, size, needed);
        });
    }
    detail::Check(qva_diagnostics_clear(manager_.get()));
    return diagnostics;
  }

  /// Called during long work; false cancels it. An empty function brings silence back. It must not throw.
  void onProgress(OnProgress onProgress) {
    onProgress_ = std::make_unique<OnProgress>(std::move(onProgress));
    const bool isSet = static_cast<bool>(*onProgress_);
    detail::Check(qva_manager_on_progress(manager_.get(), isSet ? &Progress : nullptr, onProgress_.get()));
  }

  /// Numbers of text files that are read, and of those that are written, have a comma as the decimal sign.
  void decimalComma(bool whenRead, bool whenWritten) {
    detail::Check(qva_manager_decimal_comma(manager_.get(), whenRead ? 1 : 0, whenWritten ? 1 : 0));
  }

  qva_manager* handle() const noexcept { return manager_.get(); }

 private:
  struct Destroy {
    void operator()(qva_manager* manager) const noexcept { qva_manager_destroy(manager); }
  };

  static std::int32_t QVA_CALL Progress(void* context, std::int64_t done, std::int64_t total) {
    return (*static_cast<OnProgress*>(context))(done, total) ? 1 : 0;
  }

  std::string NameOf(std::int32_t format) const {
    return detail::Text([&](char* buffer, std::int32_t size, std::int32_t* needed) {
      return qva_format_name(manager_.get(), format, buffer, size, needed);
    });
  }

  std::unique_ptr<qva_manager, Destroy> manager_;
  std::unique_ptr<OnProgress> onProgress_;
};

}  // namespace qva

#endif
