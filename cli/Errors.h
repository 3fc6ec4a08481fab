#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace qv {

/// What the program ends with.
enum ExitCode {
  kDone = 0,
  kWarned = 1,      ///< done, but something was not taken as it stood
  kWrongUsage = 2,  ///< the command line is wrong; nothing was touched
  kFileTrouble = 3  ///< a file could not be read or written, or is of no supported type; nothing was written
};

/// What the library's `Diagnostic` is to the user, in UTF-8; also for what the program itself has to say.
/// `line` is 1-based or 0, `column` is a column's keyword or a record's key; both may be missing.
struct Utf8Diagnostic {
  std::string file;
  std::int64_t line = 0;
  std::string column;
  std::string code;  ///< stable name for machines
  std::string text;  ///< as it was found
  std::string message;
  std::string stored = {};  ///< what went into the record, when it is about a cell
};

/// The command line asks for something that cannot be.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A file could not be read or written. The diagnostic has not been printed yet.
struct FileError : std::runtime_error {
  explicit FileError(Utf8Diagnostic what) : std::runtime_error(what.message), diagnostic(std::move(what)) {}
  Utf8Diagnostic diagnostic;
};

/// As FileError, after the diagnostic has been printed.
struct ReportedFileError : std::exception {};

}  // namespace qv
