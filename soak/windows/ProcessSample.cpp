#include "soak/ProcessSample.h"

#include <windows.h>

#include <tlhelp32.h>

namespace soak {
namespace {

std::int64_t CountThreads() {
  const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  std::int64_t count = 0;
  for (BOOL found = Thread32First(all, &thread); found != FALSE; found = Thread32Next(all, &thread))
    count += thread.th32OwnerProcessID == GetCurrentProcessId();
  CloseHandle(all);
  return count;
}

// As far as it has been given memory; Wine's own counters stay 0.
std::int64_t CommittedBytes() {
  std::size_t committed = 0;
  MEMORY_BASIC_INFORMATION region;
  for (char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
       at = static_cast<char*>(region.BaseAddress) + region.RegionSize)
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) committed += region.RegionSize;
  return static_cast<std::int64_t>(committed);
}

}  // namespace

ProcessSample SampleProcess() {
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  return {CommittedBytes() / 1024, static_cast<std::int64_t>(handles), CountThreads()};
}

}  // namespace soak
