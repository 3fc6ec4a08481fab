#include "platform/spreadsheet/calc/CalcPlugin.h"

#include "platform/DynamicLibrary.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace qv {
namespace {

namespace fs = std::filesystem;

bool IsOfficeFolder(const fs::path& folder) {
  std::error_code ignored;
  return fs::exists(folder / "soffice.bin", ignored) && fs::exists(folder / "libuno_sal.so.3", ignored);
}

/// The folder of the launcher of that name, which is usually a link into the program folder.
fs::path FolderOfLauncher(const fs::path& launcher) {
  std::error_code failed;
  const fs::path file = fs::canonical(launcher, failed);
  return failed ? fs::path() : file.parent_path();
}

std::vector<fs::path> FoldersOfPath() {
  std::vector<fs::path> folders;
  const char* const variable = std::getenv("PATH");
  std::istringstream path(variable == nullptr ? "" : variable);
  for (std::string folder; std::getline(path, folder, ':');)
    for (const char* launcher : {"soffice", "libreoffice"})
      if (!folder.empty()) folders.push_back(FolderOfLauncher(fs::path(folder) / launcher));
  return folders;
}

/// Where packages put it. Those of the LibreOffice project carry the version in the folder's name.
std::vector<fs::path> UsualFolders() {
  std::vector<fs::path> folders = {"/usr/lib/libreoffice/program", "/usr/lib64/libreoffice/program",
                                   "/usr/local/lib/libreoffice/program"};
  std::error_code failed;
  for (fs::directory_iterator entry("/opt", failed), end; !failed && entry != end; entry.increment(failed))
    if (entry->path().filename().string().starts_with("libreoffice"))
      folders.push_back(entry->path() / "program");
  return folders;
}

/// Where the user says, or where it is installed.
std::string PluginPath() {
  const char* const chosen = std::getenv("QVASSEMBLY_CALC");
  return chosen != nullptr ? chosen : FindComponent(kCalcPluginFile);
}

/// Loads the office's own libraries first, so that the component finds them wherever the office is installed.
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

std::string FindOfficeFolder() {
  if (const char* const chosen = std::getenv("QVASSEMBLY_OFFICE"))
    return IsOfficeFolder(chosen) ? chosen : std::string();
  for (const std::vector<fs::path>& folders : {FoldersOfPath(), UsualFolders()})
    for (const fs::path& folder : folders)
      if (!folder.empty() && IsOfficeFolder(folder)) return folder.string();
  return {};
}

std::unique_ptr<SpreadsheetApplication> StartPlatformSpreadsheet(std::string& reason) {
  const std::string officeFolder = FindOfficeFolder();
  if (officeFolder.empty()) {
    reason = "LibreOffice is not installed";
    return nullptr;
  }
  if (!LoadOfficeLibraries(officeFolder, reason)) return nullptr;
  const CalcPluginStart start = LoadPlugin(reason);
  if (start == nullptr) return nullptr;
  return std::unique_ptr<SpreadsheetApplication>(
      start(kCalcPluginVersion, officeFolder.c_str(), InspectWorkbook, &reason));
}

}  // namespace qv
