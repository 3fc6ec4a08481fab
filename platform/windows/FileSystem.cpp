#include "platform/FileSystem.h"

#include "platform/Interruption.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Paths.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <vector>

namespace qv {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr int kReplaceAttempts = 10;  // a virus scanner lets go of a new file after some tenths of a second
constexpr DWORD kReplacePause = 40;   // milliseconds

DWORD Portion(std::size_t size) {
  return static_cast<DWORD>(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max() / 2));
}

class WindowsFile final : public OpenFile {
 public:
  explicit WindowsFile(Handle handle) : handle_(std::move(handle)) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    DWORD count = 0;
    if (IsInterrupted()) return StopAtInterruption(), -1;
    if (::ReadFile(handle_.Get(), buffer, Portion(capacity), &count, nullptr) != FALSE) {
      return static_cast<std::ptrdiff_t>(count);
    }
    return GetLastError() == ERROR_BROKEN_PIPE || Fail() ? 0 : -1;  // a pipe ends so
  }

  std::int64_t Size() override {
    LARGE_INTEGER size{};
    return GetFileSizeEx(handle_.Get(), &size) != FALSE ? size.QuadPart : 0;
  }

  bool Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD count = 0;
      if (IsInterrupted()) return StopAtInterruption();
      if (WriteFile(handle_.Get(), bytes.data(), Portion(bytes.size()), &count, nullptr) == FALSE) {
        return Fail();
      }
      bytes.remove_prefix(count);
    }
    return true;
  }

  bool Flush() override {
    return GetFileType(handle_.Get()) != FILE_TYPE_DISK || FlushFileBuffers(handle_.Get()) != FALSE || Fail();
  }

  bool Close() override { return handle_.Close() || Fail(); }

 private:
  bool StopAtInterruption() {
    SetLastError(ERROR_OPERATION_ABORTED);
    return Fail();
  }

  bool Fail() {
    reason_ = SystemReason(GetLastError());
    return false;
  }

  Handle handle_;
};

// A replaced file keeps who may use it, as one that is written in place does. The working file has inherited
// that from where it was made. Failure is no reason to lose the new content.
void PassPermissions(const std::wstring& old, const std::wstring& fresh) {
  DWORD size = 0;
  GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> descriptor(size);
  if (size == 0 ||
      GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size) == FALSE) {
    return;
  }
  SetFileSecurityW(fresh.c_str(), DACL_SECURITY_INFORMATION, descriptor.data());
}

bool MakeDurable(const std::wstring& path) {
  const Handle file(CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  return file.IsOpen() && FlushFileBuffers(file.Get()) != FALSE;
}

// Tries again for a moment while another process holds the file.
bool MoveOver(const std::wstring& from, const std::wstring& to) {
  for (int attempt = 1;; ++attempt) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE) {
      return true;
    }
    const DWORD error = GetLastError();
    const bool held = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!held || attempt == kReplaceAttempts) return false;
    Sleep(kReplacePause);
  }
}

bool Done(bool succeeded, std::string& reason) {
  if (!succeeded) reason = SystemReason(GetLastError());
  return succeeded;
}

class WindowsFileSystem final : public FileSystem {
 public:
  std::unique_ptr<OpenFile> Open(const std::string& path, OpenMode mode, std::string& reason) override {
    const bool reading = mode == OpenMode::Read;
    Handle handle(CreateFileW(FullPath(path).c_str(), reading ? GENERIC_READ : GENERIC_WRITE, kShareAll,
                              nullptr, reading ? OPEN_EXISTING : OPEN_ALWAYS, FILE_FLAG_SEQUENTIAL_SCAN,
                              nullptr));
    // Emptied only here: the system would not create over a hidden file.
    if (!handle.IsOpen() || (!reading && !Empty(handle))) {
      reason = SystemReason(GetLastError());
      return nullptr;
    }
    return std::make_unique<WindowsFile>(std::move(handle));
  }

  bool Replace(const std::string& from, const std::string& to, std::string& reason) override {
    const std::wstring source = FullPath(from);
    const std::wstring target = RealPath(FullPath(to));
    PassPermissions(target, source);
    return Done(MakeDurable(source) && MoveOver(source, target), reason);
  }

  bool Remove(const std::string& path, std::string& reason) override {
    return Done(DeleteFileW(FullPath(path).c_str()) != FALSE, reason);
  }

  bool Exists(const std::string& path) override {
    return GetFileAttributesW(FullPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

 private:
  static bool Empty(const Handle& handle) {
    return GetFileType(handle.Get()) != FILE_TYPE_DISK || SetEndOfFile(handle.Get()) != FALSE;
  }
};

}  // namespace

bool LeadsToStream(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_other(std::filesystem::status(FullPath(path), ignored));
}

FileSystem& PlatformFiles() {
  static WindowsFileSystem files;
  return files;
}

const std::string_view kLineEnd = "\r\n";
const int kEndOfText = 0x1A;

}  // namespace qv
