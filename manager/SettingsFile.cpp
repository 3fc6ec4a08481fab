#include "manager/SettingsFile.h"

#include "platform/DynamicLibrary.h"
#include "platform/FileSystem.h"
#include "platform/Handlers.h"
#include "platform/ProfileFile.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <optional>

constinit CConfigFile ConfigFile;

void* CConfigFile::library_ = nullptr;
CConfigFile::Reader CConfigFile::getConfigFileValue1_ = nullptr;
CConfigFile::Function CConfigFile::getConfigFileValue2_ = nullptr;
CConfigFile::Function CConfigFile::setConfigFileValue_ = nullptr;

int CConfigFile::GetValue(const char* name, char* buffer) {
  if (library_ == nullptr) Load();
  return getConfigFileValue1_ == nullptr ? 0 : getConfigFileValue1_(name, buffer);
}

void CConfigFile::Load() {
  static constexpr const char* kLibrary = "ConfigurationManager";
  library_ = qv::LoadLibraryByName(kLibrary);
  // Loading fails for a moment while an update replaces the library, hence the second attempt.
  if (library_ == nullptr) library_ = qv::LoadLibraryByName(kLibrary);
  if (library_ == nullptr) return;
  getConfigFileValue1_ = reinterpret_cast<Reader>(qv::FindFunction(library_, "GetConfigFileValue1"));
  getConfigFileValue2_ = reinterpret_cast<Function>(qv::FindFunction(library_, "GetConfigFileValue2"));
  setConfigFileValue_ = reinterpret_cast<Function>(qv::FindFunction(library_, "SetConfigFileValue"));
}

namespace {

constexpr const char* kSection = "CsvXlsFormat";
constexpr const char* kKey = "DefaultFormat";

// The folder as the library gives it, which is expected to end with a separator; none when it has no answer.
std::optional<std::string> FolderFromSettings() {
  std::array<char, 4096> folder{};  // the library is not told the capacity
  if (ConfigFile.GetValue("QVF_DEFAULT_SETUP_PATH", folder.data()) == 0) return std::nullopt;
  return std::string(folder.data(), ::strnlen(folder.data(), folder.size()));
}

std::string FolderBesideProgram() {
  const std::string program = qv::ProgramPath();
  const std::size_t separator = program.find_last_of("/\\");
  if (separator == std::string::npos) return {};
  return program.substr(0, separator + 1) + "PARM" + program[separator];
}

constexpr const char* kFileName = "Setting.ini";

// Empty where the system has no place for it.
std::string FileAmongUsersSettings() {
  const std::string folder = qv::UserSettingsFolder();
  return folder.empty() ? folder : folder + "QVAssemblyFile/" + kFileName;
}

}  // namespace

std::string SettingsFilePath() {
  if (const std::optional<std::string> folder = FolderFromSettings()) return *folder + kFileName;
  const std::string beside = FolderBesideProgram();
  const std::string usersOwn = FileAmongUsersSettings();
  return usersOwn.empty() || qv::Files().Exists(beside) ? beside + kFileName : usersOwn;
}

std::string ReadDefaultFormat(const std::string& settingsFile) {
  return qv::ReadProfileText(settingsFile, kSection, kKey);
}

bool WriteDefaultFormat(const std::string& settingsFile, const std::string& name) {
  std::error_code toldBelow;
  if (!name.empty() && settingsFile == FileAmongUsersSettings())
    std::filesystem::create_directories(std::filesystem::path(settingsFile).parent_path(), toldBelow);
  if (qv::WriteProfileText(settingsFile, kSection, kKey, name)) return true;
  // A choice that stands there already is not lost, nor is none at all where there is no file.
  if (ReadDefaultFormat(settingsFile) == name) return true;
  if (qv::DiagnosticsWanted()) {
    qv::Report({settingsFile, 0, "", DiagnosticCode::FileNotWritten, name, "",
                "The default format could not be kept in the settings file."});
  }
  return false;
}
