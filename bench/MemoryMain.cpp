// Imports one file and says how much memory the process took at its peak beyond what the records need.

#include "ImportKind.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace {

/// A figure of the process's status in KiB, as the system tells it.
long StatusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
  return -1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) {
    std::fputs("usage: qv_bench_memory FILE FORMATS FORMAT\n", stderr);
    return 2;
  }
  const bench::ImportKind& kind = bench::KindOfFormat(arguments[3]);
  CAssemblyFileMgr manager;
  manager.LoadFormatConfiguration(arguments[2]);
  manager.SetCurrentFormat(arguments[3]);
  const long before = StatusOf("VmRSS");
  (manager.*kind.import)(arguments[1]);
  const auto records = static_cast<long>((manager.*kind.count)());
  const long needed = records * static_cast<long>(kind.recordSize) / 1024;
  std::printf("{\"records\": %ld, \"record_kib\": %ld, \"beyond_kib\": %ld}\n", records, needed,
              StatusOf("VmHWM") - before - needed);
  return 0;
}
