#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <string>

class CAssemblyFileMgr;

namespace bench {

/// What a run was told on its command line.
struct Scene {
  std::string file;      ///< --file: the data file
  std::string format;    ///< --format: the name of its format
  std::string formats;   ///< --formats: the format file
  std::string out;       ///< --out: the file that exports write
  std::size_t rows = 0;  ///< --rows: how many the file has

  static Scene& The();

  /// Loads the format file and chooses the format.
  void SetUp(CAssemblyFileMgr& manager) const;
};

/// Uses so many bytes once and gives them back, so that a virtual machine has got them when the clock runs. A
/// machine that hands free memory back to its host does so after a moment, hence before every run.
void TouchMemory(std::size_t size);

/// The time that the processor has spent on this thread.
double ProcessorSeconds();

std::string ReadWhole(const std::string& path);

/// Times one run of `work` for a benchmark with manual time. What counts is the time that the processor spent
/// on it, in the program and in the system on its behalf: everything here runs on one thread and waits for
/// nothing, and on a machine that others use too the clock on the wall tells more about them. It is kept as a
/// counter.
template <class Work>
void Time(benchmark::State& state, Work work) {
  const auto start = std::chrono::steady_clock::now();
  const double processorStart = ProcessorSeconds();
  work();
  state.SetIterationTime(ProcessorSeconds() - processorStart);
  const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
  state.counters["wall_ms"] += benchmark::Counter(wall.count(), benchmark::Counter::kAvgIterations);
}

/// Says how much one iteration did.
inline void Did(benchmark::State& state, std::size_t rows, std::size_t bytes) {
  state.counters["rows"] = static_cast<double>(rows);
  state.counters["bytes"] = static_cast<double>(bytes);
}

}  // namespace bench
