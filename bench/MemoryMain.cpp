// Imports one file and says how much memory the process took at its peak beyond what the records need.

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

namespace {

struct Kind {
  const char* name;
  bool (CAssemblyFileMgr::*import)(char*);
  int (CAssemblyFileMgr::*count)();
  std::size_t recordSize;
};

constexpr Kind kKinds[] = {
    {"parts", &CAssemblyFileMgr::ImportAssemblyFile, &CAssemblyFileMgr::GetPartsCount, sizeof(PartInformation)},
    {"sheets", &CAssemblyFileMgr::ImportShtInfoAssemblyFile, &CAssemblyFileMgr::GetShtCount, sizeof(ShtInfo)},
    {"material-inventory", &CAssemblyFileMgr::ImportMatAmncITAssemblyFile, &CAssemblyFileMgr::GetMatAmncITCount,
     sizeof(MatAmncITInfo)}};

/// A figure of the process's status in KiB, as the system tells it.
long StatusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
  return -1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 5) {
    std::fputs("usage: qv_bench_memory KIND FILE FORMATS FORMAT\n", stderr);
    return 2;
  }
  for (const Kind& kind : kKinds) {
    if (std::strcmp(kind.name, arguments[1]) != 0) continue;
    CAssemblyFileMgr manager;
    manager.LoadFormatConfiguration(arguments[3]);
    manager.SetCurrentFormat(arguments[4]);
    const long before = StatusOf("VmRSS");
    (manager.*kind.import)(arguments[2]);
    const auto records = static_cast<long>((manager.*kind.count)());
    const long needed = records * static_cast<long>(kind.recordSize) / 1024;
    std::printf("{\"records\": %ld, \"record_kib\": %ld, \"peak_kib\": %ld, \"beyond_kib\": %ld}\n", records,
                needed, StatusOf("VmHWM"), StatusOf("VmHWM") - before - needed);
    return 0;
  }
  return 2;
}
