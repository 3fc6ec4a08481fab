#pragma once

#include "cli/FormatFile.h"
#include "cli/Session.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/RecordKind.h>

#include <functional>

namespace qv {

/// Reads the data file into the manager, with the format. Throws FileErrorTold or FileError when it cannot be
/// read.
void ImportFile(Session& session, CAssemblyFileMgr& manager, RecordKind kind, const FormatFile& formats,
                const OptionForm& form, const Utf8Path& file);

/// Writes records of the kind to the data file. They are attached by `attach`, once nothing can fail any more
/// that would leave them without an owner. Throws in the same way.
void ExportFile(Session& session, CAssemblyFileMgr& manager, RecordKind kind, const FormatFile& formats,
                const OptionForm& form, const Utf8Path& file, const std::function<void()>& attach);

/// The headers of the data file, in UTF-8, without reading more of a text file than its start. Throws in the
/// same way.
std::vector<std::string> ReadHeaders(Session& session, const FormatFile& formats, const OptionForm& form,
                                     const Utf8Path& file);

/// The headers that the manager's last import found, in UTF-8.
std::vector<std::string> HeadersOf(const Session& session, CAssemblyFileMgr& manager);

/// True for a path that ends in ".xls", in any case.
bool IsWorkbook(const Utf8Path& file);

}  // namespace qv
