#pragma once

#include "c/qvassembly.h"
#include "engines/columns/RecordFields.h"
#include "format/FormatList.h"
#include "platform/Handlers.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/RecordStream.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What the handles of the C interface stand for.

struct qva_record {
  explicit qva_record(const qv::RecordType& recordType)
      : type(&recordType), owned(qv::AnyRecord(recordType)) {
    object = owned->Pointer();
  }
  qva_record(const qv::RecordType& recordType, void* borrowed) : type(&recordType), object(borrowed) {}

  const qv::RecordType* type;
  void* object;
  std::optional<qv::AnyRecord> owned;
  // The elements of lists that were asked for, by field and index.
  std::map<std::pair<std::int32_t, std::int32_t>, std::unique_ptr<qva_record>> elements;
};

namespace qv::c {

/// A function of the host's, and what it gets as its first argument.
template <class Function>
struct Callback {
  Function function = nullptr;
  void* context = nullptr;
};

}  // namespace qv::c

struct qva_manager {
  /// One collected diagnostic, in UTF-8, its texts in the order of QVA_DIAGNOSTIC_FILE and the following.
  struct Row {
    std::int64_t line;
    std::string texts[6];
  };

  CAssemblyFileMgr manager;
  FormatList formats;  // the manager has the same

  qv::c::Callback<qva_diagnostic_callback> onDiagnostic;
  qv::c::Callback<qva_message_callback> onMessage;
  qv::c::Callback<qva_progress_callback> onProgress;

  std::vector<Row> diagnostics;
  std::int64_t lostDiagnostics = 0;

  // Of the call at work.
  std::string failure;  // what a failure's diagnostic said, or a message box
  bool isCancelled = false;

  // Of the last qva_import().
  std::vector<std::unique_ptr<qva_record>> imported;
};

struct qva_reader {
  qva_manager& manager;
  std::unique_ptr<AnyRecordReader> reader;
  std::vector<std::string> headers;
  qva_record record;
  bool isKept = false;  // a record that did not fit the last batch comes next
};

struct qva_writer {
  qva_manager& manager;
  const qv::RecordType& type;
  std::unique_ptr<AnyRecordWriter> writer;
};

namespace qv::c {

/// A call that cannot be done, on its way to the status that is returned.
struct Failure {
  qva_status status;
  std::string sentence;
};

[[noreturn]] void Fail(qva_status status, std::string sentence);

/// Keeps the sentence for qva_last_error() and returns the status.
qva_status Failed(qva_status status, std::string_view sentence) noexcept;

/// Forgets the sentence of an earlier call.
void Begin() noexcept;

/// The status of an exception that is being handled; keeps its sentence.
qva_status StatusOfException() noexcept;

/// Runs the body of a function of the interface: what it throws becomes a status.
template <class Body>
qva_status Guarded(Body body) noexcept {
  Begin();
  try {
    if constexpr (std::is_void_v<decltype(body())>) {
      body();
      return QVA_OK;
    } else {
      return body();
    }
  } catch (...) {
    return StatusOfException();
  }
}

/// The object of a pointer argument, which must not be null.
template <class Object>
Object& Given(Object* pointer, const char* what) {
  if (pointer == nullptr) Fail(QVA_INVALID_ARGUMENT, std::string(what) + " is null");
  return *pointer;
}

/// Hands a number out through a pointer argument.
template <class Number, class Value>
void Give(Number* pointer, const char* what, Value value) {
  Given(pointer, what) = static_cast<Number>(value);
}

/// Hands a text out as all functions of the interface do.
qva_status GiveText(std::string_view utf8, char* buffer, std::int32_t size, std::int32_t* needed);

/// UTF-8 as text of the system's code page. Fails for what that does not have; `what` names the text.
std::string FromHost(const char* utf8, const std::string& what);

/// An index into a list of so many entries. Fails for another with `absent` ("there is no format ") and it.
std::size_t IndexIn(std::size_t count, std::int32_t index, std::string_view absent);

const RecordType& TypeOf(std::int32_t type);
std::int32_t NumberOf(const RecordType& type);
const RecordField& FieldOf(const RecordType& type, std::int32_t field);

/// Makes one record of the type like another, lists included.
void CopyRecord(const RecordType& type, void* to, void* from);

/// The kind of that number.
RecordKind KindOf(std::int32_t kind);

/// While it lives, what the library says on this thread goes to the manager.
class Listening {
 public:
  explicit Listening(qva_manager& manager, bool takesMessages = true);

  /// Fails when the work was cancelled or something failed since.
  void Check() const;

 private:
  qva_manager& manager_;
  ThreadHandlers handlers_;
};

}  // namespace qv::c
