#pragma once

#include <cstdint>

namespace soak {

/// What this process holds at the moment.
struct ProcessSample {
  std::int64_t memory = 0;   ///< KiB that lie in memory and belong to it alone
  std::int64_t handles = 0;  ///< of files and other objects of the system
  std::int64_t threads = 0;
};

ProcessSample SampleProcess();

}  // namespace soak
