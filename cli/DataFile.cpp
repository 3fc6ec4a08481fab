#include "cli/DataFile.h"

#include "cli/Errors.h"
#include "cli/Kinds.h"
#include "cli/WatchedFiles.h"
#include "platform/ConsoleProgram.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace qv {
namespace {

std::int64_t SizeOf(const Utf8Path& file) {
  std::error_code none;
  const auto size = std::filesystem::file_size(file, none);
  return none ? 0 : static_cast<std::int64_t>(size);
}

bool IsAboutColumns(DiagnosticCode code) {
  return code == DiagnosticCode::UnknownColumn || code == DiagnosticCode::NoColumns ||
         code == DiagnosticCode::PositionTaken || code == DiagnosticCode::InvalidPosition;
}

void CheckDone(const Session& session, bool isDone, const Utf8Path& file) {
  if (session.remarks.HasFailed()) throw FileErrorTold();
  if (!isDone) throw FileError({file, 0, "", "unsupported-file-type", "", session.remarks.MessageBox()});
}

}  // namespace

bool IsWorkbook(const Utf8Path& file) {
  std::string extension = file.substr(file.size() - std::min<std::size_t>(file.size(), 4));
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension == ".xls";
}

void ImportFile(Session& session, CAssemblyFileMgr& manager, RecordKind kind, const FormatFile& formats,
                const OptionForm& form, const Utf8Path& file) {
  const KindOperations& operations = OperationsOf(kind);
  if (IsWorkbook(file) && !operations.readsWorkbooks)
    throw FileError({file, 0, "", "unsupported-file-type", ".xls",
                     "this kind is not read from workbooks; use a .txt or .csv file"});
  formats.LoadInto(manager, form, session.remarks);
  std::string path = PathFromUtf8(file);
  session.progress.Start("reading " + file, SizeOf(file));
  const WatchedFiles watched(session.progress);
  const bool isDone = operations.importFile(manager, path.data());
  session.progress.Clear();
  CheckDone(session, isDone, file);
}

void ExportFile(Session& session, CAssemblyFileMgr& manager, RecordKind kind, const FormatFile& formats,
                const OptionForm& form, const Utf8Path& file, const std::function<void()>& attach) {
  formats.LoadInto(manager, form, session.remarks);
  std::string path = PathFromUtf8(file);
  session.progress.Start("writing " + file, 0);
  const WatchedFiles watched(session.progress);
  attach();
  const bool isDone = OperationsOf(kind).exportFile(manager, path.data());
  session.progress.Clear();
  CheckDone(session, isDone, file);
}

std::vector<std::string> ReadHeaders(Session& session, const FormatFile& formats, const OptionForm& form,
                                     const Utf8Path& file) {
  CAssemblyFileMgr manager;
  formats.LoadInto(manager, form, session.remarks);
  std::string path = PathFromUtf8(file);
  const WatchedFiles watched(session.progress, std::max(form.StartLine, 1));
  // The header row is the same for every kind, so it does not matter which columns this kind knows.
  const Remarks::Silence silence(session.remarks, IsAboutColumns);
  const bool isDone = manager.ImportAssemblyFile(path.data());
  CheckDone(session, isDone, file);
  return HeadersOf(session, manager);
}

std::vector<std::string> HeadersOf(const Session& session, CAssemblyFileMgr& manager) {
  std::vector<std::string> headers;
  manager.GetPartHeaders(headers);
  for (std::string& header : headers) header = session.coding.Decode(header);
  return headers;
}

}  // namespace qv
