#pragma once

#include "cli/FormatFile.h"
#include "cli/Kinds.h"
#include "cli/Session.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/RecordKind.h>

#include <functional>

namespace qv {

/// A data file and how it is read or written.
struct DataFile {
  const Utf8Path& path;
  RecordKind kind;
  const FormatFile& formats;
  const OptionForm& form;
};

/// Reads the data file into the manager. Throws FileErrorTold or FileError when it cannot be read.
void ImportFile(Session& session, CAssemblyFileMgr& manager, const DataFile& file);

/// Reads the data file and hands each record to `take` while it lives; the manager has the headers by then.
/// Throws in the same way, and what `take` throws.
void ReadFile(Session& session, CAssemblyFileMgr& manager, const DataFile& file,
              const std::function<void(void* record)>& take);

/// Writes what `feed` hands over to the data file. Throws in the same way.
void WriteFile(Session& session, const DataFile& file, const FeedRecords& feed);

/// Writes the records of one data file to another, one by one. Throws in the same way; the other file then
/// stays as it was.
void ConvertFile(Session& session, const DataFile& from, const DataFile& to);

/// The headers of the data file, in UTF-8, without reading more of the file than its start. Throws in the
/// same way.
std::vector<std::string> ReadHeaders(Session& session, const FormatFile& formats, const OptionForm& form,
                                     const Utf8Path& file);

/// The headers that the manager's last import found, in UTF-8.
std::vector<std::string> HeadersOf(const Session& session, CAssemblyFileMgr& manager);

/// What the path's extension (".xls", ".csv") says of the file, in any case.
bool IsWorkbook(const Utf8Path& file);
bool IsCsv(const Utf8Path& file);

}  // namespace qv
