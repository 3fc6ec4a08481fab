#pragma once

#include <QVAssemblyFile/Export.h>

#include <cstdint>

/// How far the import or export of one file has come.
struct FileProgress {
  enum class Work { Reading, Writing };
  enum class Unit { Bytes, Cells };  ///< bytes of a text file, cells of the worksheet at work

  const char* file;  ///< as the library was given it; valid during the call
  Work work;
  Unit unit;
  std::int64_t done;
  std::int64_t
      total;  ///< of `unit`; 0 where it is not known, as for a pipe or for a text file that is written
};

/// Called on the thread that is inside the library: after each block of a text file (a quarter of a megabyte)
/// and after each row of a worksheet. False cancels: what is read ends with the rows before, what is written
/// is given up and the old file stays; either is reported as DiagnosticCode::Cancelled. It must not throw,
/// and must not call back into the manager that is at work.
using ProgressHandler = bool (*)(const FileProgress& progress, void* context);

/// Sets the process's handler; null (the default) means that nobody asks. Files that are open already keep
/// the handler that was set when they were opened. Not to be called while another thread is inside the
/// library.
QVASSEMBLY_API void SetProgressHandler(ProgressHandler handler, void* context);
