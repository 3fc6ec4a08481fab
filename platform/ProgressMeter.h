#pragma once

#include "platform/FileProgress.h"
#include "platform/Handlers.h"

#include <cstdint>
#include <string>

namespace qv {

/// Tells the progress handler how far the work on one file has come. Costs one test a block while there is
/// none.
class ProgressMeter {
 public:
  /// `file` must outlive the meter.
  ProgressMeter(const std::string& file, FileProgress::Work work, FileProgress::Unit unit);

  /// Starts to count anew, up to `total`.
  void Expect(std::int64_t total);

  /// So much more is done. False once the work is cancelled.
  bool Advance(std::int64_t amount) { return listener_.handler == nullptr || Tell(amount); }

  bool IsCancelled() const { return isCancelled_; }

 private:
  bool Tell(std::int64_t amount);

  const ProgressListener listener_;
  FileProgress progress_;
  bool isCancelled_ = false;
};

}  // namespace qv
