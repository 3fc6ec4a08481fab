#pragma once

#include "engines/FileDiagnostics.h"

#include <cstdint>
#include <string>
#include <string_view>

/// What exports to text files and to workbooks have in common.
namespace qv {

/// The two columns about a part's group, which every format lists and only part lists have.
inline bool IsGroupColumn(std::string_view keyword) {
  return keyword == "PartPositionInGroup" || keyword == "GroupName";
}

/// Reports cells that were written as they are but will not be read back as they are.
class WrittenCellChecks {
 public:
  WrittenCellChecks(const FileDiagnostics& diagnostics, std::string delimiter, std::string qualifier,
                    bool hasDecimalComma)
      : diagnostics_(diagnostics),
        delimiter_(std::move(delimiter)),
        qualifier_(std::move(qualifier)),
        hasDecimalComma_(hasDecimalComma) {}

  /// For workbooks, where no character of a value ends its cell.
  explicit WrittenCellChecks(const FileDiagnostics& diagnostics) : diagnostics_(diagnostics) {}

  bool AreWanted() const { return diagnostics_.IsWanted(); }

  void Check(std::int64_t line, std::string_view column, std::string_view value, bool isWhole) const;
  void ReportUnknownColumn(std::int64_t line, std::string_view column) const;

 private:
  bool BreaksRow(std::string_view value) const;
  bool IsSignedNumber(std::string_view value) const;

  const FileDiagnostics& diagnostics_;
  std::string delimiter_;  // empty when nothing ends a cell
  std::string qualifier_;  // empty when cells are written bare
  bool hasDecimalComma_ = false;
};

}  // namespace qv
