#include "soak/ProcessSample.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace soak {
namespace {

std::int64_t CountEntries(const char* folder) {
  return std::distance(std::filesystem::directory_iterator(folder), {});
}

}  // namespace

ProcessSample SampleProcess() {
  std::int64_t all = 0, resident = 0, shared = 0;
  std::ifstream("/proc/self/statm") >> all >> resident >> shared;
  return {(resident - shared) * sysconf(_SC_PAGESIZE) / 1024, CountEntries("/proc/self/fd"),
          CountEntries("/proc/self/task")};
}

}  // namespace soak
