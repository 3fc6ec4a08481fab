#include "platform/FileSystem.h"

namespace qv {
namespace {

FileSystem* replacement = nullptr;

}  // namespace

FileSystem& Files() { return replacement == nullptr ? PlatformFiles() : *replacement; }

void SetFileSystem(FileSystem* files) { replacement = files; }

}  // namespace qv
