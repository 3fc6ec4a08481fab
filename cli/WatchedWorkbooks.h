#pragma once

#include "cli/Progress.h"
#include "platform/SpreadsheetApplication.h"

#include <cstdint>
#include <limits>

namespace qv {

/// Stands before the spreadsheet application while it lives, of which there is one at a time: tells the
/// progress of the cells that the library reads or writes, and can end every sheet after so many rows, for
/// those who want to know only how it starts.
class WatchedWorkbooks {
 public:
  static constexpr std::int32_t kAllRows = std::numeric_limits<std::int32_t>::max();

  explicit WatchedWorkbooks(Progress& progress, std::int32_t rows = kAllRows);
  ~WatchedWorkbooks();
  WatchedWorkbooks(const WatchedWorkbooks&) = delete;
  WatchedWorkbooks& operator=(const WatchedWorkbooks&) = delete;

 private:
  static std::unique_ptr<SpreadsheetApplication> Start(std::string& reason);

  const SpreadsheetStarter before_;
  Progress& progress_;
  const std::int32_t rows_;
};

}  // namespace qv
