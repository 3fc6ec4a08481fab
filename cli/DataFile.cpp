#include "cli/DataFile.h"

#include "cli/Errors.h"
#include "cli/WatchedFiles.h"
#include "cli/WatchedWorkbooks.h"
#include "platform/ConsoleProgram.h"

#include <algorithm>
#include <cctype>
#include <exception>
#include <filesystem>

namespace qv {
namespace {

std::int64_t SizeOf(const Utf8Path& file) {
  std::error_code none;
  const auto size = std::filesystem::file_size(file, none);
  return none ? 0 : static_cast<std::int64_t>(size);
}

bool HasExtension(const Utf8Path& file, std::string_view wanted) {
  std::string extension = file.substr(file.size() - std::min(file.size(), wanted.size()));
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension == wanted;
}

bool IsAboutColumns(DiagnosticCode code) {
  return code == DiagnosticCode::UnknownColumn || code == DiagnosticCode::NoColumns ||
         code == DiagnosticCode::PositionTaken || code == DiagnosticCode::InvalidPosition;
}

void CheckDone(const Session& session, bool isDone, const Utf8Path& file) {
  if (session.remarks.HasFailed()) throw FileErrorTold();
  if (!isDone) throw FileError({file, 0, "", "unsupported-file-type", "", session.remarks.MessageBox()});
}

std::string PrepareReading(Session& session, CAssemblyFileMgr& manager, const DataFile& file) {
  if (IsWorkbook(file.path) && !OperationsOf(file.kind).readsWorkbooks)
    throw FileError({file.path, 0, "", "unsupported-file-type", ".xls",
                     "this kind is not read from workbooks; use a .txt or .csv file"});
  file.formats.LoadInto(manager, file.form, session.remarks);
  return PathFromUtf8(file.path);
}

}  // namespace

bool IsWorkbook(const Utf8Path& file) { return HasExtension(file, ".xls"); }

bool IsCsv(const Utf8Path& file) { return HasExtension(file, ".csv"); }

void ImportFile(Session& session, CAssemblyFileMgr& manager, const DataFile& file) {
  std::string path = PrepareReading(session, manager, file);
  session.progress.Start("reading " + file.path, SizeOf(file.path));
  const WatchedFiles watched(session.progress, OpenMode::Read);
  const WatchedWorkbooks watchedWorkbooks(session.progress);
  const bool isDone = OperationsOf(file.kind).importFile(manager, path.data());
  session.progress.Clear();
  CheckDone(session, isDone, file.path);
}

void ReadFile(Session& session, CAssemblyFileMgr& manager, const DataFile& file,
              const std::function<void(void* record)>& take) {
  std::string path = PrepareReading(session, manager, file);
  session.progress.Start("reading " + file.path, SizeOf(file.path));
  const WatchedFiles watched(session.progress, OpenMode::Read);
  const WatchedWorkbooks watchedWorkbooks(session.progress);
  std::exception_ptr thrown;  // nothing is thrown through the library
  const bool isDone = OperationsOf(file.kind).readFile(manager, path.data(), [&](void* record) {
    try {
      take(record);
    } catch (...) {
      thrown = std::current_exception();
    }
    return thrown == nullptr;
  });
  session.progress.Clear();
  if (thrown != nullptr) std::rethrow_exception(thrown);
  CheckDone(session, isDone, file.path);
}

void WriteFile(Session& session, const DataFile& file, const FeedRecords& feed) {
  CAssemblyFileMgr manager;
  file.formats.LoadInto(manager, file.form, session.remarks);
  std::string path = PathFromUtf8(file.path);
  session.progress.Start("writing " + file.path, 0);
  const WatchedFiles watched(session.progress, OpenMode::Write);
  const WatchedWorkbooks watchedWorkbooks(session.progress);
  const bool isDone = OperationsOf(file.kind).writeFile(manager, path.data(), feed);
  session.progress.Clear();
  CheckDone(session, isDone, file.path);
}

void ConvertFile(Session& session, const DataFile& from, const DataFile& to) {
  CAssemblyFileMgr reader, writer;
  std::string fromPath = PrepareReading(session, reader, from);
  to.formats.LoadInto(writer, to.form, session.remarks);
  std::string toPath = PathFromUtf8(to.path);
  session.progress.Start("converting " + from.path, SizeOf(from.path));
  const WatchedFiles watched(session.progress, OpenMode::Read);
  const WatchedWorkbooks watchedWorkbooks(session.progress);
  bool isRead = true;
  const bool isDone = OperationsOf(to.kind).writeFile(writer, toPath.data(), [&](const TakeRecord& write) {
    isRead = OperationsOf(from.kind).readFile(reader, fromPath.data(), write);
    return isRead && !session.remarks.HasFailed();
  });
  session.progress.Clear();
  CheckDone(session, isRead, from.path);
  CheckDone(session, isDone, to.path);
}

std::vector<std::string> ReadHeaders(Session& session, const FormatFile& formats, const OptionForm& form,
                                     const Utf8Path& file) {
  CAssemblyFileMgr manager;
  formats.LoadInto(manager, form, session.remarks);
  std::string path = PathFromUtf8(file);
  const std::int64_t lines = IsWorkbook(file) ? WatchedFiles::kAllLines : std::max(form.StartLine, 1);
  const WatchedFiles watched(session.progress, OpenMode::Read, lines);
  const WatchedWorkbooks watchedWorkbooks(session.progress, std::max(form.StartLine, 0));
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
