#include "platform/ProgressMeter.h"

namespace qv {

ProgressMeter::ProgressMeter(const std::string& file, FileProgress::Work work, FileProgress::Unit unit)
    : listener_(CurrentProgressListener()), progress_{file.c_str(), work, unit, 0, 0} {}

void ProgressMeter::Expect(std::int64_t total) {
  progress_.done = 0;
  progress_.total = total;
}

bool ProgressMeter::Tell(std::int64_t amount) {
  progress_.done += amount;
  if (!isCancelled_) isCancelled_ = !listener_.handler(progress_, listener_.context);
  return !isCancelled_;
}

}  // namespace qv
