#pragma once

#include "engines/columns/Remark.h"
#include "platform/Diagnostics.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

/// Tells the diagnostic handler what an import or export of one file did not take as it stood. Costs nothing
/// while nobody listens.
class FileReport {
 public:
  explicit FileReport(std::string_view file) : file_(file), wanted_(DiagnosticsWanted()) {}

  bool IsWanted() const { return wanted_; }

  void Tell(DiagnosticCode code, std::int64_t line, std::string_view column, std::string_view text,
            std::string_view stored, std::string message) const;

  /// What a column's reader noticed about a cell.
  void TellCell(Remark remark, std::int64_t line, std::string_view column, std::string_view text,
                std::string_view stored) const;

  /// The list has no more than `lines` lines and thus no header row.
  void TellNoHeaderRow(std::int64_t lines, int headerRow) const;

 private:
  std::string file_;
  bool wanted_;
};

/// "1 field", "2 fields".
std::string Counted(std::size_t count, const char* what);

/// `text` in quotes for a sentence, cut when it is long.
std::string Quoted(std::string_view text);

}  // namespace qv
