#include "platform/FileSystem.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Paths.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <utility>

namespace qv {
namespace {

constexpr int kSlots = 16;  // processes that may rewrite one file at the same moment

// A path that is locked against other processes.
class Claim {
 public:
  // Removes what a killed run left at the path. False, with the cause in GetLastError(), when the path is
  // another's or cannot be written.
  bool Take(const std::wstring& path, const std::wstring& lockPath) {
    lock_ = Handle(CreateFileW(lockPath.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                               FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!lock_.IsOpen()) return false;
    if (DeleteFileW(path.c_str()) != FALSE || GetLastError() == ERROR_FILE_NOT_FOUND) return true;
    const DWORD error = GetLastError();
    lock_ = Handle();
    SetLastError(error);
    return false;
  }

  void Release() { lock_.Close(); }

 private:
  Handle lock_;
};

class WindowsWorkingFile final : public WorkingFile {
 public:
  WindowsWorkingFile(const std::string& target, const std::string& path, Claim claim, std::wstring folder)
      : WorkingFile(target, path), claim_(std::move(claim)), folder_(std::move(folder)) {}

  ~WindowsWorkingFile() override {
    claim_.Release();
    if (!folder_.empty()) RemoveDirectoryW(folder_.c_str());  // refused while another call works in it
  }

 private:
  Claim claim_;
  std::wstring folder_;  // empty when the working file lies beside the target
};

// A name of eight characters fits wherever the target does: a folder's path leaves room for it. Two targets
// that come to the same name take different slots.
std::wstring Stem(const std::wstring& name, int slot) {
  std::uint32_t hash = 2166136261u;
  for (const wchar_t c : name) {
    hash = (hash ^ static_cast<std::uint32_t>(std::towupper(static_cast<std::wint_t>(c)))) * 16777619u;
  }
  wchar_t stem[16];
  std::swprintf(stem, std::size(stem), L"~qv%04x%x", static_cast<unsigned>((hash ^ hash >> 16) & 0xFFFF),
                static_cast<unsigned>(slot));
  return stem;
}

struct SlotPaths {
  SlotPaths(const std::wstring& target, int slot) {
    const std::wstring stem = FolderOf(target) + Stem(FileNameOf(target), slot);
    working = stem + ExtensionOf(target);
    lock = stem + L".lck";
  }
  std::wstring working;
  std::wstring lock;
};

// What killed runs left in other slots. A slot in use is locked and stays.
void SweepSlots(const std::wstring& target, int taken) {
  for (int slot = 0; slot < kSlots; ++slot) {
    const SlotPaths paths(target, slot);
    if (slot == taken || GetFileAttributesW(paths.working.c_str()) == INVALID_FILE_ATTRIBUTES) continue;
    Claim stale;
    stale.Take(paths.working, paths.lock);
  }
}

std::unique_ptr<WorkingFile> ClaimBeside(const std::string& target, const std::wstring& real,
                                         std::string& reason) {
  for (int slot = 0; slot < kSlots; ++slot) {
    const SlotPaths paths(real, slot);
    Claim claim;
    if (!claim.Take(paths.working, paths.lock)) continue;
    SweepSlots(real, slot);
    const std::string folder = NarrowPath(FolderOf(real));
    if (folder.empty()) break;
    return std::make_unique<WindowsWorkingFile>(target, folder + Narrow(FileNameOf(paths.working)),
                                                std::move(claim), std::wstring());
  }
  const DWORD error = GetLastError();
  reason = SystemReason(error == ERROR_SUCCESS ? ERROR_INVALID_NAME : error);
  return nullptr;
}

std::wstring VolumeRoot(const std::wstring& path) {
  wchar_t root[MAX_PATH + 1];
  return GetVolumePathNameW(path.c_str(), root, static_cast<DWORD>(std::size(root))) != FALSE ? root : L"";
}

std::wstring FolderOfThisSecond(const std::wstring& root) {
  SYSTEMTIME now;
  GetLocalTime(&now);
  wchar_t name[64];
  std::swprintf(name, std::size(name), L"%d-%d-%d-%d-%d-%d\\", now.wYear, now.wMonth, now.wDay, now.wHour,
                now.wMinute, now.wSecond);
  return root + name;
}

// 0 when there is no such folder.
DWORD VolumeOf(const std::wstring& folder) {
  const Handle handle(CreateFileW(folder.c_str(), FILE_READ_ATTRIBUTES,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  return handle.IsOpen() && GetFileInformationByHandle(handle.Get(), &information) != FALSE
             ? information.dwVolumeSerialNumber
             : 0;
}

// Null where the folder cannot be had: only an administrator may write at some roots, a target may be reached
// through another volume, and two files of one name may be rewritten in the same second.
std::unique_ptr<WorkingFile> ClaimInFolderOfThisSecond(const std::string& target, const std::wstring& real) {
  const std::wstring root = VolumeRoot(real);
  if (root.empty() || VolumeOf(root) != VolumeOf(FolderOf(real))) return nullptr;
  const std::wstring folder = FolderOfThisSecond(root);
  if (CreateDirectoryW(folder.c_str(), nullptr) == FALSE && GetLastError() != ERROR_ALREADY_EXISTS) {
    return nullptr;
  }
  const std::wstring path = folder + FileNameOf(real);
  const std::string narrow = NarrowPath(path);
  Claim claim;
  if (!narrow.empty() && claim.Take(path, folder + Stem(FileNameOf(real), 0) + L".lck")) {
    return std::make_unique<WindowsWorkingFile>(target, narrow, std::move(claim), folder);
  }
  RemoveDirectoryW(folder.c_str());
  return nullptr;
}

bool MayReplace(const std::wstring& real, std::string& reason) {
  constexpr DWORD kProtected = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
  const DWORD attributes = GetFileAttributesW(real.c_str());
  const bool isProtected = attributes != INVALID_FILE_ATTRIBUTES && (attributes & kProtected) != 0;
  const bool isNamed = !FileNameOf(real).empty();
  if (isNamed && !isProtected) return true;
  reason = SystemReason(isNamed ? ERROR_ACCESS_DENIED : ERROR_PATH_NOT_FOUND);
  return false;
}

}  // namespace

// By a lock file beside it that the system removes with its holder.
std::unique_ptr<WorkingFile> FileSystem::PrepareWorkingFile(const std::string& target, WorkingPlace place,
                                                            std::string& reason) {
  const std::wstring path = FullPath(target);
  if (IsDevice(path)) return std::make_unique<WorkingFile>(target, target);
  const std::wstring real = RealPath(path);
  if (!MayReplace(real, reason)) return nullptr;
  if (place == WorkingPlace::WorkingFolder) {
    if (auto file = ClaimInFolderOfThisSecond(target, real)) return file;
  }
  return ClaimBeside(target, real, reason);
}

}  // namespace qv
