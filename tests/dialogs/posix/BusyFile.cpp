#include "tests/dialogs/DialogDriver.h"

#include <sys/stat.h>

// A pipe into which nothing is written.
std::shared_ptr<void> MakeBusyFile(const std::string& path) {
  mkfifo(path.c_str(), 0600);
  return nullptr;
}
