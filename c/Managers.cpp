#include "c/Handles.h"
#include "format/FormatColumns.h"
#include "format/FormatConfiguration.h"
#include "manager/FileStart.h"
#include "manager/FormatOptionDialog.h"
#include "manager/ManagerState.h"
#include "platform/CodePage.h"
#include "text/Phrases.h"

#include <algorithm>

using namespace qv::c;

namespace {

constexpr std::size_t kMaxDiagnostics = 10000;

constexpr DiagnosticCode kFailures[] = {DiagnosticCode::FileNotOpened, DiagnosticCode::FileNotWritten,
                                        DiagnosticCode::NoSpreadsheet, DiagnosticCode::SpreadsheetFailed};

void Take(qva_manager& manager, const Diagnostic& diagnostic) {
  const bool isFailure = std::ranges::find(kFailures, diagnostic.code) != std::end(kFailures);
  qva_manager::Row row{
      diagnostic.line,
      {qv::ToUtf8(diagnostic.file), qv::ToUtf8(diagnostic.column), DiagnosticCodeName(diagnostic.code),
       qv::ToUtf8(diagnostic.text), qv::ToUtf8(diagnostic.stored), qv::ToUtf8(diagnostic.message)}};
  if (isFailure && manager.failure.empty()) manager.failure = row.texts[0] + ": " + row.texts[5];
  if (const auto [function, context] = manager.onDiagnostic; function != nullptr) {
    const auto& [file, column, code, text, stored, message] = row.texts;
    function(context, file.c_str(), row.line, column.c_str(), code.c_str(), text.c_str(), stored.c_str(),
             message.c_str());
  } else if (manager.diagnostics.size() < kMaxDiagnostics) {
    manager.diagnostics.push_back(std::move(row));
  } else {
    ++manager.lostDiagnostics;
  }
}

// Nothing may be thrown through the library from here.
void OnDiagnostic(const Diagnostic& diagnostic, void* context) {
  auto& manager = *static_cast<qva_manager*>(context);
  try {
    Take(manager, diagnostic);
  } catch (...) {
    ++manager.lostDiagnostics;
  }
}

void OnMessage(const char* text, void* context) {
  auto& manager = *static_cast<qva_manager*>(context);
  try {
    const std::string utf8 = qv::ToUtf8(text);
    if (manager.failure.empty()) manager.failure = utf8;
    if (const auto [function, given] = manager.onMessage; function != nullptr) function(given, utf8.c_str());
  } catch (...) {
    manager.failure.clear();
  }
}

bool OnProgress(const FileProgress& progress, void* context) {
  auto& manager = *static_cast<qva_manager*>(context);
  const auto [function, given] = manager.onProgress;
  if (function == nullptr) return true;
  if (function(given, progress.done, progress.total) == 0) manager.isCancelled = true;
  return !manager.isCancelled;
}

/// The format of the manager, which must be given.
const OptionForm& FormOf(const qva_manager* manager, std::int32_t format) {
  const auto& formats = Given(manager, "manager").formats.Formats;
  return formats[IndexIn(formats.size(), format, "there is no format ")];
}

const qva_manager::Row& RowOf(const qva_manager* manager, std::int32_t index) {
  const auto& rows = Given(manager, "manager").diagnostics;
  return rows[IndexIn(rows.size(), index, "there is no diagnostic ")];
}

std::int32_t FindForm(const qva_manager& manager, const std::string& name) {
  const auto& formats = manager.formats.Formats;
  const auto found = std::ranges::find(formats, name, &OptionForm::Name);
  if (found != formats.end()) return static_cast<std::int32_t>(found - formats.begin());
  std::string names;
  for (const OptionForm& form : formats) names.append(names.empty() ? "" : ", ").append(form.Name);
  Fail(QVA_NOT_FOUND, qv::ToUtf8("there is no format " + qv::Quoted(name) +
                                 "; there are: " + (names.empty() ? "none" : names)));
}

void GiveFormats(qva_manager& manager) { qv::ManagerFormats::Set(manager.manager, manager.formats); }

void Load(qva_manager& manager, const std::string& path) {
  const qv::LoadedFormats loaded = qv::LoadFormats(path);
  if (!loaded.IsRead()) {
    const qv::XmlError& error = loaded.error;
    const std::string where =
        error.line > 0 ? ":" + std::to_string(error.line) + ": column " + std::to_string(error.column) : "";
    Fail(QVA_FILE_ERROR, qv::ToUtf8(path + where + ": the format file cannot be read: " + error.reason));
  }
  if (!loaded.IsFormatFile())
    Fail(QVA_FILE_ERROR, qv::ToUtf8(path + ": this is an XML file of another kind, and no format file"));
  for (const Diagnostic& diagnostic : loaded.diagnostics) qv::Report(diagnostic);
  manager.formats = loaded.list;
  GiveFormats(manager);
}

}  // namespace

qv::c::Listening::Listening(qva_manager& manager, bool takesMessages)
    : manager_(manager), handlers_(OnDiagnostic, takesMessages ? OnMessage : nullptr, OnProgress, &manager) {
  manager.failure.clear();
  manager.isCancelled = false;
}

void qv::c::Listening::Check() const {
  if (manager_.isCancelled) Fail(QVA_CANCELLED, "the progress callback cancelled the work");
  if (!manager_.failure.empty()) Fail(QVA_FILE_ERROR, manager_.failure);
}

qva_status QVA_CALL qva_manager_create(qva_manager** manager) {
  return Guarded([&] {
    qva_manager*& created = Given(manager, "manager");
    created = new qva_manager;
  });
}

void QVA_CALL qva_manager_destroy(qva_manager* manager) { delete manager; }

qva_status QVA_CALL qva_manager_on_diagnostic(qva_manager* manager, qva_diagnostic_callback callback,
                                              void* context) {
  return Guarded([&] { Given(manager, "manager").onDiagnostic = {callback, context}; });
}

qva_status QVA_CALL qva_manager_on_message(qva_manager* manager, qva_message_callback callback,
                                           void* context) {
  return Guarded([&] { Given(manager, "manager").onMessage = {callback, context}; });
}

qva_status QVA_CALL qva_manager_on_progress(qva_manager* manager, qva_progress_callback callback,
                                            void* context) {
  return Guarded([&] { Given(manager, "manager").onProgress = {callback, context}; });
}

qva_status QVA_CALL qva_manager_decimal_comma(qva_manager* manager, int32_t when_read, int32_t when_written) {
  return Guarded(
      [&] { Given(manager, "manager").manager.SetDecimalComma(when_read != 0, when_written != 0); });
}

qva_status QVA_CALL qva_diagnostics_count(qva_manager* manager, int32_t* count, int64_t* lost) {
  return Guarded([&] {
    Give(count, "count", Given(manager, "manager").diagnostics.size());
    if (lost != nullptr) *lost = manager->lostDiagnostics;
  });
}

qva_status QVA_CALL qva_diagnostic_line(qva_manager* manager, int32_t index, int64_t* line) {
  return Guarded([&] { Given(line, "line") = RowOf(manager, index).line; });
}

qva_status QVA_CALL qva_diagnostic_text(qva_manager* manager, int32_t index, int32_t which, char* buffer,
                                        int32_t size, int32_t* needed) {
  return Guarded([&] {
    const qva_manager::Row& row = RowOf(manager, index);
    const std::size_t text = IndexIn(std::size(row.texts), which, "a diagnostic has no text ");
    return GiveText(row.texts[text], buffer, size, needed);
  });
}

qva_status QVA_CALL qva_diagnostics_clear(qva_manager* manager) {
  return Guarded([&] {
    Given(manager, "manager").diagnostics.clear();
    manager->lostDiagnostics = 0;
  });
}

qva_status QVA_CALL qva_formats_load(qva_manager* manager, const char* path) {
  return Guarded([&] {
    const Listening listening(Given(manager, "manager"));
    Load(*manager, FromHost(path, "path"));
  });
}

qva_status QVA_CALL qva_formats_count(qva_manager* manager, int32_t* count) {
  return Guarded([&] { Give(count, "count", Given(manager, "manager").formats.Formats.size()); });
}

qva_status QVA_CALL qva_formats_find(qva_manager* manager, const char* name, int32_t* format) {
  return Guarded(
      [&] { Given(format, "format") = FindForm(Given(manager, "manager"), FromHost(name, "name")); });
}

qva_status QVA_CALL qva_format_name(qva_manager* manager, int32_t format, char* buffer, int32_t size,
                                    int32_t* needed) {
  return Guarded([&] { return GiveText(qv::ToUtf8(FormOf(manager, format).Name), buffer, size, needed); });
}

qva_status QVA_CALL qva_format_start_line(qva_manager* manager, int32_t format, int32_t* line) {
  return Guarded([&] { Given(line, "line") = FormOf(manager, format).StartLine; });
}

qva_status QVA_CALL qva_format_is_part_name_only(qva_manager* manager, int32_t format, int32_t* flag) {
  return Guarded([&] { Given(flag, "flag") = FormOf(manager, format).PartKey == "Name"; });
}

qva_status QVA_CALL qva_format_column_count(qva_manager* manager, int32_t format, int32_t* count) {
  return Guarded([&] { Give(count, "count", qv::ColumnsOf(FormOf(manager, format)).size()); });
}

qva_status QVA_CALL qva_format_column(qva_manager* manager, int32_t format, int32_t column, char* buffer,
                                      int32_t size, int32_t* needed) {
  return Guarded([&] {
    const auto columns = qv::ColumnsOf(FormOf(manager, format));
    const std::size_t place = IndexIn(columns.size(), column, "the format has no column ");
    return GiveText(qv::ToUtf8(columns[place].keyword), buffer, size, needed);
  });
}

qva_status QVA_CALL qva_format_current(qva_manager* manager, int32_t* format) {
  return Guarded([&] {
    const qva_manager& asked = Given(manager, "manager");
    Given(format, "format") = FindForm(asked, asked.formats.CurrentFormat);
  });
}

qva_status QVA_CALL qva_format_select(qva_manager* manager, const char* name) {
  return Guarded([&] {
    const std::string wanted = FromHost(name, "name");
    FindForm(Given(manager, "manager"), wanted);
    manager->formats.CurrentFormat = wanted;
    GiveFormats(*manager);
  });
}

qva_status QVA_CALL qva_stored_format_get(qva_manager* manager, const char* path, char* buffer, int32_t size,
                                          int32_t* needed) {
  return Guarded([&] {
    const Listening listening(Given(manager, "manager"));
    const std::string name = qv::StoredFormatName(FromHost(path, "path").c_str());
    listening.Check();
    return GiveText(qv::ToUtf8(name), buffer, size, needed);
  });
}

qva_status QVA_CALL qva_stored_format_set(qva_manager* manager, const char* path, const char* name) {
  return Guarded([&] {
    const Listening listening(Given(manager, "manager"));
    manager->manager.SetCurrentFormatToFile(FromHost(name, "name").c_str(), FromHost(path, "path").c_str());
    listening.Check();
  });
}

qva_status QVA_CALL qva_show_format_dialog(qva_manager* manager, const char* format_file, const char* format,
                                           const char* sample, void* parent) {
  return Guarded([&]() -> qva_status {
    // Without a callback the dialog shows its messages itself.
    const bool takesMessages = Given(manager, "manager").onMessage.function != nullptr;
    const Listening listening(*manager, takesMessages);
    const auto optional = [](const char* text, const char* what) {
      return text == nullptr ? std::string() : FromHost(text, what);
    };
    const FormatOptionRequest request{true,
                                      optional(format, "format"),
                                      static_cast<HWND>(parent),
                                      FromHost(format_file, "format_file"),
                                      optional(sample, "sample"),
                                      0};
    if (const std::string why = WhyNoFormatOptionDialog(); !why.empty())
      Fail(QVA_NOT_AVAILABLE, qv::ToUtf8(why));
    if (!ShowFormatOptionDialog(request)) return Failed(QVA_CANCELLED, "the dialog was cancelled");
    Load(*manager, request.configPath);
    return QVA_OK;
  });
}
