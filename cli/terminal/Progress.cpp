#include "cli/terminal/Progress.h"

#include "cli/StandardStreams.h"
#include "platform/ConsoleProgram.h"
#include "platform/Interruption.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace qv {
namespace {

constexpr std::chrono::milliseconds kPatience(1000);
constexpr std::chrono::milliseconds kPace(200);
constexpr std::int64_t kMegabyte = 1000000;

std::string Amount(const FileProgress& progress) {
  if (progress.total > 0)
    return std::to_string(std::min<std::int64_t>(progress.done * 100 / progress.total, 100)) + " %";
  const bool isText = progress.unit == FileProgress::Unit::Bytes;
  return isText ? std::to_string(progress.done / kMegabyte) + " MB"
                : std::to_string(progress.done) + " cells";
}

}  // namespace

Progress::Progress(const Streams& streams) : streams_(streams) {
  SetProgressHandler(
      [](const FileProgress& progress, void* self) {
        static_cast<Progress*>(self)->ShowAt(Clock::now(), progress);
        return !IsInterrupted();
      },
      this);
}

Progress::~Progress() {
  SetProgressHandler(nullptr, nullptr);
  Clear();
}

void Progress::ShowAt(Clock::time_point now, const FileProgress& progress) {
  if (!streams_.errorIsTerminal || isStopped_) return;
  const bool isReading = progress.work == FileProgress::Work::Reading;
  isReading_ = isReading_ || isReading;
  // A text that is written while another file is read is as far as that is.
  if (isReading_ && !isReading && progress.unit == FileProgress::Unit::Bytes) return;
  std::string work = (isReading ? "reading " : "writing ") + ShownPath(PathToUtf8(progress.file));
  if (work != work_) nextDraw_ = now + kPatience;
  work_ = std::move(work);
  if (now < nextDraw_) return;
  nextDraw_ = now + kPace;
  streams_.error << "\r\x1b[K" << work_ << "  " << Amount(progress) << std::flush;
  isShown_ = true;
}

void Progress::Clear() {
  if (isShown_) streams_.error << "\r\x1b[K" << std::flush;
  isShown_ = false;
}

}  // namespace qv
