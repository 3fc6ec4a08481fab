#pragma once

#include "engines/FileReport.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

/// Remarks on cells that were written as they stand but that a reader will not take as they stand.
class WrittenCellRemarks {
 public:
  WrittenCellRemarks(const FileReport& report, std::string delimiter, std::string qualifier)
      : report_(report), delimiter_(std::move(delimiter)), qualifier_(std::move(qualifier)) {}

  /// For workbooks, where no character of a value ends its cell.
  explicit WrittenCellRemarks(const FileReport& report) : report_(report) {}

  bool AreWanted() const { return report_.IsWanted(); }

  void Tell(std::int64_t line, std::string_view column, std::string_view value, bool isWhole) const;
  void TellUnknownColumn(std::int64_t line, std::string_view column) const;

 private:
  bool BreaksRow(std::string_view value) const;

  const FileReport& report_;
  std::string delimiter_;  // empty when nothing ends a cell
  std::string qualifier_;  // empty when cells are written bare
};

}  // namespace qv
