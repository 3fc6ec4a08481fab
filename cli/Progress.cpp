#include "cli/Progress.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace qv {
namespace {

constexpr std::chrono::milliseconds kPatience(1000);
constexpr std::chrono::milliseconds kPace(200);
constexpr std::int64_t kMegabyte = 1000000;

}  // namespace

void Progress::Start(std::string what, std::int64_t total, Unit unit) {
  Clear();
  unit_ = unit;
  what_ = std::move(what);
  total_ = total;
  done_ = 0;
  nextDraw_ = Clock::now() + kPatience;
}

void Progress::AdvanceAt(Clock::time_point now, std::int64_t amount) {
  done_ += amount;
  if (!streams_.errorIsTerminal || now < nextDraw_) return;
  nextDraw_ = now + kPace;
  Draw();
}

void Progress::Draw() {
  std::string amount =
      unit_ == Unit::Bytes ? std::to_string(done_ / kMegabyte) + " MB" : std::to_string(done_) + " cells";
  if (total_ > 0) amount = std::to_string(std::min<std::int64_t>(done_ * 100 / total_, 100)) + " %";
  streams_.error << "\r\x1b[K" << what_ << "  " << amount << std::flush;
  isShown_ = true;
}

void Progress::Clear() {
  if (isShown_) streams_.error << "\r\x1b[K" << std::flush;
  isShown_ = false;
}

}  // namespace qv
