#pragma once

#include "engines/FileDiagnostics.h"
#include "records/RecordKind.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

class CAssemblyFile;
class CTxtAssembly;

/// How the records of one file come out of it and go into it, whatever carries them. The imports and exports
/// of the engines are loops over these, and so is all that hosts do record by record.
namespace qv {

/// A row as an import takes it, valid until the source goes on.
struct SourceRow {
  std::int64_t line = 0;
  std::span<const std::string_view> fields;  ///< as many as there are columns; of a sample all
  const void* record = nullptr;              ///< null: the row was left out
};

/// A file that is being read. It is closed when there is no more to read.
class RecordSource {
 public:
  virtual ~RecordSource() = default;

  /// Goes to the next row, whether or not it gives a record; false when there is none.
  virtual bool NextRow(SourceRow& row) = 0;

  /// The next record, which is the engine's and gone with the next call; null when there is none. What was
  /// noticed about its row, and about rows left out before it, has been reported by then.
  virtual void* Next() = 0;

  /// Adds all records that are left to the engine's list.
  virtual void KeepAll() = 0;

  /// The line or worksheet row that was read last; 0 before the header row.
  virtual std::int64_t LineNumber() const = 0;

  /// Whether the file could not be opened, or not be read to its end.
  virtual bool HasFailed() const = 0;
};

/// A file that is being written. Until Commit() has succeeded the old file stays as it was.
class RecordTarget {
 public:
  virtual ~RecordTarget() = default;

  /// Writes a record of the target's kind; false when the file cannot be written any more.
  virtual bool Put(const void* record) = 0;

  /// The same for all records that the engine's list holds.
  virtual void PutStaged() = 0;

  /// Writes all that is left to write; what there is to remark on has been reported by then.
  virtual bool Finish() = 0;

  /// Finishes the file and puts it in its place; false when the old one stays.
  virtual bool Commit() = 0;

  /// Whether the file could not be begun or written. The reason has been reported.
  virtual bool HasFailed() const = 0;
};

/// Opens the diagnostics' file with an engine that fits it and has its format: the engine's HeaderFields are
/// those of the file then. Null for a kind that such files do not carry. Engine and diagnostics must outlive
/// the source.
std::unique_ptr<RecordSource> OpenRecords(CAssemblyFile& engine, RecordKind kind,
                                          const FileDiagnostics& diagnostics);

/// Begins to write the file in the same way; null for a kind that is never written.
std::unique_ptr<RecordTarget> BeginRecords(CAssemblyFile& engine, RecordKind kind,
                                           const FileDiagnostics& diagnostics);

/// What the two choose from. Without columns a text file gets neither a header row nor rows. A workbook is
/// made by Finish() out of copies in the engine's list, as the lists of part programs go over their records
/// once each, and no second application may have to be started while this one is at work.
std::unique_ptr<RecordSource> OpenTextRecords(CTxtAssembly& engine, RecordKind kind,
                                              const FileDiagnostics& diagnostics);
std::unique_ptr<RecordTarget> BeginTextRecords(CAssemblyFile& engine, RecordKind kind,
                                               const FileDiagnostics& diagnostics);
std::unique_ptr<RecordSource> OpenWorkbookRecords(CAssemblyFile& engine, RecordKind kind,
                                                  const FileDiagnostics& diagnostics);
std::unique_ptr<RecordTarget> BeginWorkbookRecords(CAssemblyFile& engine, RecordKind kind,
                                                   const FileDiagnostics& diagnostics);

/// Reads header row and records of the file into the engine.
void ImportRecords(CAssemblyFile& engine, RecordKind kind, const FileDiagnostics& diagnostics);

/// Writes the engine's records of the first kind that has columns; false when the old file stays.
bool ExportRecords(CAssemblyFile& engine, const FileDiagnostics& diagnostics);

}  // namespace qv
