#pragma once

#include "cli/Program.h"

#include <QVAssemblyFile/FileProgress.h>

#include <chrono>
#include <string>

namespace qv {

/// Shows on a terminal's standard error how far the library has come with a file, as long as this lives:
/// after one second, then a few times a second, on one line that goes when the work is done. Silent where
/// standard error is no terminal. An interrupt of the program cancels the work.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;

  explicit Progress(const Streams& streams);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void ShowAt(Clock::time_point now, const FileProgress& progress);

  /// Shows nothing from now on, as on a terminal the data itself tells how far the work has come.
  void Stop() {
    Clear();
    isStopped_ = true;
  }

  /// Takes the line away, so that something else may be written; it comes back with the next progress.
  void Clear();

 private:
  const Streams& streams_;
  std::string work_;  // "reading parts.csv"
  Clock::time_point nextDraw_;
  bool isReading_ = false;
  bool isShown_ = false;
  bool isStopped_ = false;
};

}  // namespace qv
