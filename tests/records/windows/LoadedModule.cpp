#include "tests/records/LoadedModule.h"

#include <windows.h>

LoadedModule::LoadedModule(const char* path) : handle_(LoadLibraryA(path)) {}
LoadedModule::~LoadedModule() {
  if (handle_ != nullptr) FreeLibrary(static_cast<HMODULE>(handle_));
}

void* LoadedModule::Function(const char* name) const {
  if (handle_ == nullptr) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

bool LoadedModule::IsLoaded(const char* path) { return GetModuleHandleA(path) != nullptr; }

std::size_t CommittedBytes() {
  std::size_t committed = 0;
  MEMORY_BASIC_INFORMATION region;
  for (char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
       at = static_cast<char*>(region.BaseAddress) + region.RegionSize)
    if (region.State == MEM_COMMIT) committed += region.RegionSize;
  return committed;
}
