#include "platform/SpreadsheetApplication.h"

#include "platform/calc/CalcPlugin.h"
#include "platform/posix/ComponentFile.h"
#include "platform/posix/OfficeFolder.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace qv {
namespace {

/// Where the user says, or where it is installed.
std::string PluginPath() {
  const char* const chosen = std::getenv("QVASSEMBLY_CALC");
  return chosen != nullptr ? chosen : FindComponent(kCalcPluginFile);
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
  const std::string path = PluginPath();
  if (path.empty() || access(path.c_str(), R_OK) != 0) {
    reason = std::string("the component ") + kCalcPluginFile + " is not installed";
    return nullptr;
  }
  void* const plugin = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = plugin == nullptr ? nullptr : dlsym(plugin, kCalcPluginEntry);
  if (entry == nullptr) reason = dlerror();
  return reinterpret_cast<CalcPluginStart>(entry);
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
