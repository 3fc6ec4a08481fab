#include "platform/DynamicLibrary.h"

#include "platform/FileSystem.h"

#include <dlfcn.h>

#include <string>

namespace qv {

void* LoadLibraryByName(const char* baseName) {
  const std::string fileName = std::string(baseName) + ".so";
  const std::string program = ProgramPath();
  const std::string beside = program.substr(0, program.rfind('/') + 1) + fileName;
  void* library = dlopen(beside.c_str(), RTLD_NOW | RTLD_LOCAL);
  return library != nullptr ? library : dlopen(fileName.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* FindFunction(void* library, const char* name) { return dlsym(library, name); }

}  // namespace qv
