#pragma once

#include <string>

/// Where Setting.ini is: in the folder that the settings library names, else in the folder PARM beside the
/// running program.
std::string SettingsFilePath();

/// The name of the user's default format; empty when there is none.
std::string ReadDefaultFormat(const std::string& settingsFile);

/// Keeps the name of the default format; empty for none. A failure is told to the diagnostic handler.
bool WriteDefaultFormat(const std::string& settingsFile, const std::string& name);
