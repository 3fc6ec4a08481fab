#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>

namespace qv {

/// An office of one's own, run by its guard. The destructor ends it and returns when neither process nor
/// files are left.
class OfficeProcess {
 public:
  /// Starts the guard, which starts the office. Throws SpreadsheetError.
  OfficeProcess(const std::string& programFolder, std::string pipeName);
  ~OfficeProcess();
  OfficeProcess(const OfficeProcess&) = delete;
  OfficeProcess& operator=(const OfficeProcess&) = delete;

  const std::string& PipeName() const { return pipeName_; }

  /// Whether the office is gone, whatever the reason.
  bool HasEnded();

  /// Waits for an office that was asked to quit, at most so long.
  void AwaitEnd(std::chrono::milliseconds patience);

 private:
  std::string pipeName_;
  pid_t guard_ = -1;
  int livenessPipe_ = -1;  // the guard ends the office when this is closed
  bool ended_ = false;
};

}  // namespace qv
