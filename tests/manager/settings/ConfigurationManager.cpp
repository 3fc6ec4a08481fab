#include <cstring>

// A settings library with one setting, which the test sets.
static char setupFolder[260];

extern "C" {

void SetSetupFolder(const char* folder) { std::strncpy(setupFolder, folder, sizeof setupFolder - 1); }

int GetConfigFileValue1(const char* name, char* buffer) {
  if (std::strcmp(name, "QVF_DEFAULT_SETUP_PATH") != 0 || setupFolder[0] == '\0') return 0;
  std::strcpy(buffer, setupFolder);
  return 7;
}

}  // extern "C"
