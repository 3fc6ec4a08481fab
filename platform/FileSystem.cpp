#include "platform/FileSystem.h"

#include <algorithm>
#include <array>

namespace qv {
namespace {

FileSystem* replacement = nullptr;

}  // namespace

FileSystem& Files() { return replacement == nullptr ? PlatformFiles() : *replacement; }

void SetFileSystem(FileSystem* files) { replacement = files; }

std::optional<std::string> ReadFile(const std::string& path, std::string& reason, std::size_t limit) {
  const std::unique_ptr<OpenFile> file = Files().Open(path, OpenMode::Read, reason);
  if (file == nullptr) return std::nullopt;
  std::array<char, 65536> buffer;
  std::string bytes;
  std::ptrdiff_t count = 1;
  while (count > 0 && bytes.size() < limit) {
    count = file->Read(buffer.data(), std::min(buffer.size(), limit - bytes.size()));
    if (count > 0) bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
  if (count >= 0) return bytes;
  reason = file->Reason();
  return std::nullopt;
}

}  // namespace qv
