#include "platform/DynamicLibrary.h"

#include "platform/FileSystem.h"

#include <dlfcn.h>
#include <unistd.h>

namespace qv {
namespace {

// The folder of the file that holds this code: the library, or a program that contains it.
std::string OwnFolder() {
  Dl_info info;
  if (dladdr(reinterpret_cast<const void*>(&OwnFolder), &info) == 0 || info.dli_fname == nullptr) return {};
  std::string file = info.dli_fname;
  if (!file.starts_with('/')) file = ProgramPath();  // a program is known by the name it was called by
  return file.substr(0, file.rfind('/') + 1);
}

}  // namespace

void* LoadLibraryByName(const char* baseName) {
  const std::string fileName = std::string(baseName) + ".so";
  const std::string program = ProgramPath();
  const std::string beside = program.substr(0, program.rfind('/') + 1) + fileName;
  void* library = dlopen(beside.c_str(), RTLD_NOW | RTLD_LOCAL);
  return library != nullptr ? library : dlopen(fileName.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* FindFunction(void* library, const char* name) { return dlsym(library, name); }

std::string FindComponent(const std::string& fileName) {
  const std::string own = OwnFolder();
  for (const char* folder : {"", "qvassembly/", "../qvassembly/", QV_COMPONENT_FOLDER "/"}) {
    std::string path = own + folder + fileName;
    if (access(path.c_str(), R_OK) == 0) return path;
  }
  return {};
}

}  // namespace qv
