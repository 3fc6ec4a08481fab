#include "platform/DynamicLibrary.h"

#include "platform/FileSystem.h"
#include "platform/windows/Paths.h"
#include "platform/windows/WideText.h"

#include <windows.h>

namespace qv {
namespace {

// A broken library must not open a box of the system's.
class QuietErrors {
 public:
  QuietErrors() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &previous_); }
  ~QuietErrors() { SetThreadErrorMode(previous_, nullptr); }
  QuietErrors(const QuietErrors&) = delete;
  QuietErrors& operator=(const QuietErrors&) = delete;

 private:
  DWORD previous_ = 0;
};

}  // namespace

void* LoadLibraryByName(const char* baseName) {
  const QuietErrors quiet;
  const std::wstring fileName = Widen(baseName) + L".dll";
  const std::wstring beside = FolderOf(FullPath(ProgramPath())) + fileName;
  HMODULE library = LoadLibraryExW(beside.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (library == nullptr) library = LoadLibraryW(fileName.c_str());
  return library;
}

void* FindFunction(void* library, const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

}  // namespace qv
