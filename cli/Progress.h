#pragma once

#include "cli/Streams.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace qv {

/// Tells on a terminal's standard error how far long work has come: after one second, then a few times a
/// second, on one line that goes when the work is done. Silent where standard error is no terminal.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;

  explicit Progress(const Streams& streams) : streams_(streams) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  enum class Unit { Bytes, Cells };

  /// Starts to tell of work: "reading parts.csv". A total of 0 means that nobody knows it.
  void Start(std::string what, std::int64_t total, Unit unit = Unit::Bytes);

  void Advance(std::int64_t amount) { AdvanceAt(Clock::now(), amount); }
  void AdvanceAt(Clock::time_point now, std::int64_t amount);

  /// Takes the line away, so that something else may be written; the next advance shows it again.
  void Clear();

 private:
  void Draw();

  const Streams& streams_;
  std::string what_;
  Unit unit_ = Unit::Bytes;
  std::int64_t total_ = 0;
  std::int64_t done_ = 0;
  Clock::time_point nextDraw_;
  bool isShown_ = false;
};

}  // namespace qv
