#include "tests/records/LoadedModule.h"

#include <dlfcn.h>
#include <unistd.h>

#include <fstream>

LoadedModule::LoadedModule(const char* path) : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {}
LoadedModule::~LoadedModule() {
  if (handle_ != nullptr) dlclose(handle_);
}

void* LoadedModule::Function(const char* name) const {
  return handle_ == nullptr ? nullptr : dlsym(handle_, name);
}

bool LoadedModule::IsLoaded(const char* path) {
  void* const handle = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
  if (handle != nullptr) dlclose(handle);
  return handle != nullptr;
}

std::size_t CommittedBytes() {
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}
