#pragma once

#include "cli/Session.h"
#include "cli/formats/FormatFile.h"
#include "engines/columns/RecordFields.h"

#include <QVAssemblyFile/RecordStream.h>

#include <string>
#include <vector>

namespace qv {

/// A data file and how it is read or written.
struct DataFile {
  const Utf8Path& path;
  RecordKind kind;
  const FormatFile& formats;
  const OptionForm& form;
  bool hasDecimalComma = false;
};

/// A file's headers in UTF-8, without a byte-order mark.
std::vector<std::string> DecodedHeaders(const Session& session, std::vector<std::string> headers);

/// A data file that is read record by record. All throw ReportedFileError or FileError on failure.
class InputFile {
 public:
  InputFile(Session& session, const DataFile& file);

  /// In UTF-8, without a byte-order mark.
  std::vector<std::string> Headers();

  /// The next record, which lives until the next call; null at the end.
  void* Next();

  /// The line of the record that was read last.
  std::int64_t LineNumber() const { return reader_.LineNumber(); }

 private:
  Session& session_;
  CAssemblyFileMgr manager_;
  AnyRecordReader reader_;
};

/// A data file that is written record by record. All throw ReportedFileError when it cannot be written; the
/// old file then stays, as it does without Commit(), and with it where a strict run has a warning.
class OutputFile {
 public:
  OutputFile(Session& session, const DataFile& file);

  void Put(const void* record);
  void Commit();

 private:
  Session& session_;
  Utf8Path path_;
  CAssemblyFileMgr manager_;
  AnyRecordWriter writer_;
};

}  // namespace qv
