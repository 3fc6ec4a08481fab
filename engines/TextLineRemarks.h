#pragma once

#include "engines/FieldSplitter.h"
#include "engines/FileReport.h"

#include <cstdint>
#include <string_view>

namespace qv {

/// Remarks on the lines of a text file that do not concern a single column.
class TextLineRemarks {
 public:
  explicit TextLineRemarks(const FileReport& report) : report_(report) {}

  /// For every line that is split.
  void Tell(std::int64_t number, const FieldViews& row) const {
    if (report_.IsWanted()) TellOf(number, row);
  }

  /// For the lines before the header row.
  void TellStart(std::string_view line, std::int64_t number) const;

 private:
  void TellOf(std::int64_t number, const FieldViews& row) const;

  const FileReport& report_;
};

}  // namespace qv
