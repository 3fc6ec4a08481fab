#include "platform/SpreadsheetApplication.h"

#include "platform/FileSystem.h"
#include "platform/calc/CalcPlugin.h"
#include "platform/posix/OfficeFolder.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

namespace qv {
namespace {

/// The folder of the file that holds this code: the library, or a program that contains it.
std::string OwnFolder() {
  Dl_info info;
  if (dladdr(reinterpret_cast<const void*>(&OwnFolder), &info) == 0 || info.dli_fname == nullptr) return {};
  std::string file = info.dli_fname;
  if (!file.starts_with('/')) file = ProgramPath();  // a program is known by the name it was called by
  return file.substr(0, file.rfind('/') + 1);
}

/// Where the component may stand: where the user says, beside the library, in its folder below the library's,
/// and where a program of the same installation finds it.
std::vector<std::string> PluginPaths() {
  if (const char* const chosen = std::getenv("QVASSEMBLY_CALC")) return {chosen};
  std::vector<std::string> paths;
  for (const char* folder : {"", "qvassembly/", "../qvassembly/", QV_PLUGIN_FOLDER "/"})
    paths.push_back(OwnFolder() + folder + kCalcPluginFile);
  return paths;
}

/// Makes the office's own libraries known first, so that the component finds them wherever the office stands.
bool LoadOfficeLibraries(const std::string& officeFolder, std::string& reason) {
  for (const char* name :
       {"libuno_sal.so.3", "libuno_salhelpergcc3.so.3", "libuno_cppu.so.3", "libuno_cppuhelpergcc3.so.3"}) {
    if (dlopen((officeFolder + "/" + name).c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr) continue;
    reason = dlerror();
    return false;
  }
  return true;
}

CalcPluginStart LoadPlugin(std::string& reason) {
  for (const std::string& path : PluginPaths()) {
    if (access(path.c_str(), R_OK) != 0) continue;
    void* const plugin = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const entry = plugin == nullptr ? nullptr : dlsym(plugin, kCalcPluginEntry);
    if (entry == nullptr) reason = dlerror();
    return reinterpret_cast<CalcPluginStart>(entry);
  }
  reason = std::string("the component ") + kCalcPluginFile + " is not installed";
  return nullptr;
}

}  // namespace

std::unique_ptr<SpreadsheetApplication> StartPlatformSpreadsheet(std::string& reason) {
  const std::string officeFolder = FindOfficeFolder();
  if (officeFolder.empty()) {
    reason = "LibreOffice is not installed";
    return nullptr;
  }
  if (!LoadOfficeLibraries(officeFolder, reason)) return nullptr;
  const CalcPluginStart start = LoadPlugin(reason);
  if (start == nullptr) return nullptr;
  return std::unique_ptr<SpreadsheetApplication>(start(kCalcPluginVersion, officeFolder.c_str(), &reason));
}

}  // namespace qv
