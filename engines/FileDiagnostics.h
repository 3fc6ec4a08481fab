#pragma once

#include "platform/Handlers.h"
#include "text/Phrases.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

/// What a column's reader noticed while it put a cell into a record.
enum class CellRemark : unsigned char {
  None,
  NotANumber,
  TrailingText,
  NumberOutOfRange,
  EmptyValue,
  UnknownWord,
  TextCut,
  AbandonRow,  ///< the cell says that the row is no record at all
};

/// Reports to the diagnostic handler what an import or export of one file did not take as it stood. Costs
/// nothing while there is no handler.
class FileDiagnostics {
 public:
  FileDiagnostics(const char* file) : FileDiagnostics(file, DiagnosticsWanted()) {}

  /// For work whose diagnostics nobody needs.
  static FileDiagnostics Silent(const char* file) { return {file, false}; }

  const std::string& File() const { return file_; }
  bool IsWanted() const { return wanted_; }

  void Report(DiagnosticCode code, std::int64_t line, std::string_view column, std::string_view text,
              std::string_view stored, std::string message) const;

  /// One that is not about a cell.
  void Report(DiagnosticCode code, std::int64_t line, std::string message) const {
    Report(code, line, {}, {}, {}, std::move(message));
  }

  void ReportCell(CellRemark remark, std::int64_t line, std::string_view column, std::string_view text,
                  std::string_view stored) const;

  /// The list ends with line `last` and thus has no header row.
  void ReportNoHeaderRow(std::int64_t last, int headerRow) const;

  /// No format bears the current name; `choice` says which names there are. This explains as well why there
  /// are no columns.
  void ReportUnknownFormat(std::string_view name, const std::string& choice);

  /// `what` is not done, as there are no columns.
  void ReportNoColumns(std::int64_t line, const std::string& what) const;

 private:
  FileDiagnostics(const char* file, bool wanted) : file_(file == nullptr ? "" : file), wanted_(wanted) {}

  std::string file_;
  bool wanted_;
  bool formatIsUnknown_ = false;
};

}  // namespace qv
