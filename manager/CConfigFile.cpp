#include "manager/CConfigFile.h"

#include "platform/DynamicLibrary.h"

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
