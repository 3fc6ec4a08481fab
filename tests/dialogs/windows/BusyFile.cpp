#include "tests/dialogs/DialogDriver.h"

#include <windows.h>

// Open without sharing, as by a program that writes it.
std::shared_ptr<void> MakeBusyFile(const std::string& path) {
  return {CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr), CloseHandle};
}
