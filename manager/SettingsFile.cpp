#include "manager/SettingsFile.h"

#include "manager/CConfigFile.h"
#include "platform/FileSystem.h"
#include "platform/ProfileFile.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <array>
#include <cstring>
#include <optional>

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

}  // namespace

std::string SettingsFilePath() {
  const std::optional<std::string> folder = FolderFromSettings();
  return (folder ? *folder : FolderBesideProgram()) + "Setting.ini";
}

std::string ReadDefaultFormat(const std::string& settingsFile) {
  return qv::ReadProfileText(settingsFile, kSection, kKey);
}

bool WriteDefaultFormat(const std::string& settingsFile, const std::string& name) {
  if (qv::WriteProfileText(settingsFile, kSection, kKey, name)) return true;
  // A choice that stands there already is not lost, nor is none at all where there is no file.
  if (ReadDefaultFormat(settingsFile) == name) return true;
  if (qv::DiagnosticsWanted()) {
    qv::Report({settingsFile, 0, "", DiagnosticCode::FileNotWritten, name, "",
                "The default format could not be kept in the settings file."});
  }
  return false;
}
