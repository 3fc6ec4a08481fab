#include "cli/DataFile.h"

#include "cli/Errors.h"
#include "platform/ConsoleProgram.h"

namespace qv {
namespace {

/// The manager with the file's format.
CAssemblyFileMgr& WithFormat(CAssemblyFileMgr& manager, const DataFile& file) {
  file.formats.GiveTo(manager, file.form);
  manager.SetDecimalComma(file.hasDecimalComma, file.hasDecimalComma);
  return manager;
}

/// The path for the library of a file that is written.
std::string PathToWrite(const Session& session, const DataFile& file) {
  if (session.diagnostics.style.isStrict && IsStream(file.path))
    throw UsageError("--strict: what goes into a pipe cannot be held back; - with --type can");
  return PathFromUtf8(file.path);
}

/// The path for the library of a file that is read.
std::string PathToRead(const DataFile& file) {
  // There are no workbooks of the import-only kinds, and the library tells nothing about that.
  if (IsWorkbook(file.path) && !IsExported(file.kind))
    throw FileError({file.path, 0, "", "unsupported-file-type", ".xls",
                     "this kind is not read from workbooks; use a .txt or .csv file"});
  return PathFromUtf8(file.path);
}

// Whatever fails has been printed by then.
void EndWork(Session& session, bool hasFailed) {
  session.progress.Clear();
  if (hasFailed || session.diagnostics.HasFailed()) throw ReportedFileError();
}

}  // namespace

std::vector<std::string> DecodedHeaders(const Session& session, std::vector<std::string> headers) {
  if (!headers.empty() && headers.front().starts_with(kUtf8Mark)) headers.front().erase(0, kUtf8Mark.size());
  for (std::string& header : headers) header = session.coding.Decode(header);
  return headers;
}

InputFile::InputFile(Session& session, const DataFile& file)
    : session_(session), reader_(WithFormat(manager_, file), file.kind, PathToRead(file).c_str()) {
  if (reader_.HasFailed()) EndWork(session_, true);
}

std::vector<std::string> InputFile::Headers() {
  std::vector<std::string> headers;
  manager_.GetPartHeaders(headers);
  return DecodedHeaders(session_, std::move(headers));
}

void* InputFile::Next() {
  void* const record = reader_.Next();
  if (record == nullptr) EndWork(session_, reader_.HasFailed());
  return record;
}

OutputFile::OutputFile(Session& session, const DataFile& file)
    : session_(session),
      path_(file.path),
      writer_(WithFormat(manager_, file), file.kind, PathToWrite(session, file).c_str()) {
  if (writer_.HasFailed()) EndWork(session_, true);
}

void OutputFile::Put(const void* record) {
  if (!writer_.Put(record)) EndWork(session_, true);
}

void OutputFile::Commit() {
  EndWork(session_, !writer_.Finish());
  if (!session_.diagnostics.ForbidsWriting(path_)) EndWork(session_, !writer_.Commit());
}

}  // namespace qv
