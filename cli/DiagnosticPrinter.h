#pragma once

#include "cli/Errors.h"
#include "cli/TextCoding.h"
#include "cli/terminal/Progress.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qv {

/// How the user wants diagnostics.
struct DiagnosticStyle {
  bool isJson = false;
  bool isStrict = false;  ///< a warning keeps files from being written
  bool showsAll = false;  ///< text has each warning, not only the first ones of each code and column
};

/// Prints to standard error what the library reports while this lives, and what commands say besides the
/// data.
class DiagnosticPrinter {
 public:
  /// `coding` is that of what the library's diagnostics quote.
  DiagnosticPrinter(const Streams& streams, Progress& progress, const TextCoding& coding);
  ~DiagnosticPrinter();
  DiagnosticPrinter(const DiagnosticPrinter&) = delete;
  DiagnosticPrinter& operator=(const DiagnosticPrinter&) = delete;

  DiagnosticStyle style;

  /// Called with every warning from now on; one for which it returns false is counted and not printed. May be
  /// empty. Must not throw, as it is called through the library.
  using Filter = std::function<bool(const Utf8Diagnostic& warning)>;
  void SetFilter(Filter filter) { filter_ = std::move(filter); }

  /// The data was not taken as it stood.
  void Warn(const Utf8Diagnostic& diagnostic);
  /// The work could not be done.
  void Fail(const Utf8Diagnostic& diagnostic);
  /// What may help, and is no warning.
  void Advise(const Utf8Diagnostic& diagnostic) { Print(diagnostic); }
  /// A plain sentence that is no warning, unless it was the last one already; nothing in JSON.
  void Note(const std::string& sentence);

  /// Prints how many warnings were left out since the last time, a line for each code and column.
  void PrintOmitted();

  /// Whether a strict run has warned, so that the file must not be written; that is told.
  bool ForbidsWriting(const std::string& file);

  std::int64_t Warnings() const { return warnings_; }
  bool HasFailed() const { return failed_; }

  /// From now on the library's diagnostics of this code are dropped.
  void Ignore(DiagnosticCode code) { ignored_ = code; }

 private:
  struct Kind {
    std::string file, column, code;
    std::int64_t count = 0;
    bool operator==(const Utf8Diagnostic& warning) const {
      return column == warning.column && code == warning.code && file == warning.file;
    }
  };

  void Receive(const Diagnostic& diagnostic);
  bool IsOmitted(const Utf8Diagnostic& warning);
  void Print(const Utf8Diagnostic& diagnostic);

  const Streams& streams_;
  Progress& progress_;
  const TextCoding& coding_;
  bool failed_ = false;
  std::optional<DiagnosticCode> ignored_;
  Filter filter_;
  std::vector<Kind> kinds_;  // of warnings, in the order in which they came first
  std::int64_t warnings_ = 0;
  std::string note_;
};

}  // namespace qv
