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

/// The text that the function gives for the arguments before its buffer.
template <class Function, class... Arguments>
std::string Text(Function get, Arguments... arguments) {
  std::string text(63, '\0');
  std::int32_t needed = 0;
  qva_status status = get(arguments..., &text[0], static_cast<std::int32_t>(text.size()) + 1, &needed);
  if (status == QVA_SHORT_BUFFER) {
    text.resize(static_cast<std::size_t>(needed));
    status = get(arguments..., &text[0], needed + 1, &needed);
  }
  Check(status);
  text.resize(static_cast<std::size_t>(needed));
  return text;
}

/// What the function puts where its last argument points.
template <class Value, class Function, class... Arguments>
Value Result(Function get, Arguments... arguments) {
  Value value{};
  Check(get(arguments..., &value));
  return value;
}

/// Gives a handle back.
struct Release {
  void operator()(qva_manager* manager) const noexcept { qva_manager_destroy(manager); }
  void operator()(qva_reader* reader) const noexcept { qva_reader_close(reader); }
  void operator()(qva_writer* writer) const noexcept { qva_writer_abandon(writer); }
};

}  // namespace detail

/// A record, or an element of a record's list. Fields are named, or given by their index (Record::field).
class Record {
 public:
  /// A fresh record of the kind.
  explicit Record(Kind kind)
      : Record(detail::Result<qva_record*>(qva_record_create, static_cast<std::int32_t>(kind)), true) {}

  /// A copy that outlives the reader or list of the original.
  Record clone() const { return Record(detail::Result<qva_record*>(qva_record_clone, handle()), true); }

  /// The index of a field, for those who name it more than once.
  std::int32_t field(const char* name) const {
    const auto type = detail::Result<std::int32_t>(qva_record_type, handle());
    return detail::Result<std::int32_t>(qva_field_find, type, name);
  }

  std::string text(std::int32_t field) const { return detail::Text(qva_record_get_text, handle(), field); }
  std::int32_t integer(std::int32_t field) const {
    return detail::Result<std::int32_t>(qva_record_get_integer, handle(), field);
  }
  double number(std::int32_t field) const {
    return detail::Result<double>(qva_record_get_number, handle(), field);
  }
  bool flag(std::int32_t field) const {
    return detail::Result<std::int32_t>(qva_record_get_flag, handle(), field) != 0;
  }
  std::string text(const char* name) const { return text(field(name)); }
  std::int32_t integer(const char* name) const { return integer(field(name)); }
  double number(const char* name) const { return number(field(name)); }
  bool flag(const char* name) const { return flag(field(name)); }

  void set(std::int32_t field, const std::string& text) { set(field, text.c_str()); }
  void set(std::int32_t field, const char* text) {
    detail::Check(qva_record_set_text(handle(), field, text));
  }
  void set(std::int32_t field, std::int32_t value) {
    detail::Check(qva_record_set_integer(handle(), field, value));
  }
  void set(std::int32_t field, double value) { detail::Check(qva_record_set_number(handle(), field, value)); }
  void set(std::int32_t field, bool value) { detail::Check(qva_record_set_flag(handle(), field, value)); }
  template <class Value>
  void set(const char* name, const Value& value) {
    set(field(name), value);
  }

  /// The list of a list field: its size, and its elements, which belong to this record.
  std::int32_t listSize(const char* name) const {
    return detail::Result<std::int32_t>(qva_record_list_size, handle(), field(name));
  }
  void resizeList(const char* name, std::int32_t size) {
    detail::Check(qva_record_list_resize(handle(), field(name), size));
  }
  Record element(const char* name, std::int32_t index) {
    return Record(detail::Result<qva_record*>(qva_record_list_element, handle(), field(name), index), false);
  }

  qva_record* handle() const noexcept { return record_.get(); }

 private:
  struct Destroy {
    bool isOwner;
    void operator()(qva_record* record) const noexcept {
      if (isOwner) qva_record_destroy(record);
    }
  };

  friend class Reader;
  Record(qva_record* record, bool isOwner) noexcept : record_(record, Destroy{isOwner}) {}

  std::unique_ptr<qva_record, Destroy> record_;
};

/// Reads a file record by record; a range for `for`. A record is valid until the next one.
class Reader {
 public:
  std::vector<std::string> headers() const {
    const auto count = detail::Result<std::int32_t>(qva_reader_header_count, handle());
    std::vector<std::string> headers;
    for (std::int32_t index = 0; index < count; ++index)
      headers.push_back(detail::Text(qva_reader_header, handle(), index));
    return headers;
  }

  /// Null when there are no more.
  Record* next() {
    qva_record* record = nullptr;
    const qva_status status = qva_reader_next(handle(), &record);
    record_.record_.reset(record);
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

  qva_reader* handle() const noexcept { return reader_.get(); }

 private:
  friend class Manager;
  explicit Reader(qva_reader* reader) noexcept : reader_(reader), record_(nullptr, false) {}

  std::unique_ptr<qva_reader, detail::Release> reader_;
  Record record_;
};

/// Writes a file record by record. Without commit() nothing is written, and an existing file stays.
class Writer {
 public:
  void put(const Record& record) { detail::Check(qva_writer_put(writer_.get(), record.handle())); }
  void commit() { detail::Check(qva_writer_commit(writer_.release())); }

 private:
  friend class Manager;
  explicit Writer(qva_writer* writer) noexcept : writer_(writer) {}

  std::unique_ptr<qva_writer, detail::Release> writer_;
};

/// Formats, and the files that are read and written with them.
class Manager {
 public:
  using OnProgress = std::function<bool(std::int64_t done, std::int64_t total)>;

  Manager() : manager_(detail::Result<qva_manager*>(qva_manager_create)) {}

  void loadFormats(const std::string& path) { detail::Check(qva_formats_load(handle(), path.c_str())); }
  std::vector<std::string> formats() const {
    const auto count = detail::Result<std::int32_t>(qva_formats_count, handle());
    std::vector<std::string> names;
    for (std::int32_t index = 0; index < count; ++index) names.push_back(NameOf(index));
    return names;
  }
  std::string currentFormat() const {
    return NameOf(detail::Result<std::int32_t>(qva_format_current, handle()));
  }
  void selectFormat(const std::string& name) { detail::Check(qva_format_select(handle(), name.c_str())); }

  /// The name of a format that the file carries; empty where it carries none.
  std::string storedFormat(const std::string& path) const {
    return detail::Text(qva_stored_format_get, handle(), path.c_str());
  }
  void storeFormat(const std::string& path, const std::string& name) {
    detail::Check(qva_stored_format_set(handle(), path.c_str(), name.c_str()));
  }

  Reader read(const std::string& path, Kind kind) {
    return Reader(detail::Result<qva_reader*>(qva_reader_open, handle(), static_cast<std::int32_t>(kind),
                                              path.c_str()));
  }
  Writer write(const std::string& path, Kind kind) {
    return Writer(detail::Result<qva_writer*>(qva_writer_open, handle(), static_cast<std::int32_t>(kind),
                                              path.c_str()));
  }

  /// The remarks since the last call.
  std::vector<Diagnostic> takeDiagnostics() {
    std::int32_t count = 0;
    detail::Check(qva_diagnostics_count(handle(), &count, nullptr));
    std::vector<Diagnostic> diagnostics(static_cast<std::size_t>(count));
    for (std::int32_t index = 0; index < count; ++index) {
      Diagnostic& diagnostic = diagnostics[static_cast<std::size_t>(index)];
      diagnostic.line = detail::Result<std::int64_t>(qva_diagnostic_line, handle(), index);
      std::string* const texts[] = {&diagnostic.file, &diagnostic.column, &diagnostic.code,
                                    &diagnostic.text, &diagnostic.stored, &diagnostic.message};
      for (std::int32_t which = QVA_DIAGNOSTIC_FILE; which <= QVA_DIAGNOSTIC_MESSAGE; ++which)
        *texts[which] = detail::Text(qva_diagnostic_text, handle(), index, which);
    }
    detail::Check(qva_diagnostics_clear(handle()));
    return diagnostics;
  }

  /// Called during long work; false cancels it. An empty function brings silence back. It must not throw.
  void onProgress(OnProgress onProgress) {
    onProgress_ = std::make_unique<OnProgress>(std::move(onProgress));
    const bool isSet = static_cast<bool>(*onProgress_);
    detail::Check(qva_manager_on_progress(handle(), isSet ? &Progress : nullptr, onProgress_.get()));
  }

  /// Numbers of text files that are read, and of those that are written, have a comma as the decimal sign.
  void decimalComma(bool whenRead, bool whenWritten) {
    detail::Check(qva_manager_decimal_comma(handle(), whenRead ? 1 : 0, whenWritten ? 1 : 0));
  }

  qva_manager* handle() const noexcept { return manager_.get(); }

 private:
  static std::int32_t QVA_CALL Progress(void* context, std::int64_t done, std::int64_t total) {
    return (*static_cast<OnProgress*>(context))(done, total) ? 1 : 0;
  }

  std::string NameOf(std::int32_t format) const { return detail::Text(qva_format_name, handle(), format); }

  std::unique_ptr<qva_manager, detail::Release> manager_;
  std::unique_ptr<OnProgress> onProgress_;
};

}  // namespace qva

#endif
