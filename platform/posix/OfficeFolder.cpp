#include "platform/posix/OfficeFolder.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <vector>

namespace qv {
namespace {

namespace fs = std::filesystem;

bool IsOfficeFolder(const fs::path& folder) {
  std::error_code ignored;
  return fs::exists(folder / "soffice.bin", ignored) && fs::exists(folder / "libuno_sal.so.3", ignored);
}

/// The folder behind the launcher of that name, which is usually a link into the program folder.
fs::path FolderOfLauncher(const fs::path& launcher) {
  std::error_code failed;
  const fs::path file = fs::canonical(launcher, failed);
  return failed ? fs::path() : file.parent_path();
}

std::vector<fs::path> FoldersOfPath() {
  std::vector<fs::path> folders;
  const char* const variable = std::getenv("PATH");
  std::string_view rest = variable == nullptr ? "" : variable;
  while (!rest.empty()) {
    const std::string_view folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(rest.size(), folder.size() + 1));
    for (const char* launcher : {"soffice", "libreoffice"})
      if (!folder.empty()) folders.push_back(FolderOfLauncher(fs::path(folder) / launcher));
  }
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

}  // namespace

std::string FindOfficeFolder() {
  if (const char* const chosen = std::getenv("QVASSEMBLY_OFFICE"))
    return IsOfficeFolder(chosen) ? chosen : std::string();
  for (const std::vector<fs::path>& folders : {FoldersOfPath(), UsualFolders()})
    for (const fs::path& folder : folders)
      if (!folder.empty() && IsOfficeFolder(folder)) return folder.string();
  return {};
}

}  // namespace qv
