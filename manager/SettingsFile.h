#pragma once

#include <string>

/// The installation's settings library, found at run time. Without it there are no settings, and nobody is
/// told.
class CConfigFile {
 public:
  constexpr CConfigFile() = default;
  virtual ~CConfigFile() = default;

  /// Reads a named setting into `buffer`, whose capacity is whatever the settings library writes at most for
  /// that name (260 characters for a path). Returns what the library returns, nonzero for success; 0 when the
  /// library or its reader is missing.
  virtual int GetValue(const char* name, char* buffer);

 private:
  using Reader = int (*)(const char* name, char* buffer);
  using Function = void (*)();

  static void Load();

  // One library per process, whatever number of these objects there is. Never unloaded: a function of it may
  // be on the stack of any thread of the host.
  static void* library_;
  static Reader getConfigFileValue1_;
  static Function getConfigFileValue2_;
  static Function setConfigFileValue_;
};

/// The process's settings.
extern CConfigFile ConfigFile;

/// Where Setting.ini is: in the folder that the settings library names, else in the folder PARM beside the
/// running program. Where there is no such folder, on systems that have a place for each user's settings, in
/// the folder QVAssemblyFile there.
std::string SettingsFilePath();

/// The name of the user's default format; empty when there is none.
std::string ReadDefaultFormat(const std::string& settingsFile);

/// Keeps the name of the default format; empty for none. Creates the folder among the user's settings. A
/// failure is told to the diagnostic handler.
bool WriteDefaultFormat(const std::string& settingsFile, const std::string& name);
