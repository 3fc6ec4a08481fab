#include "manager/StoredFormatName.h"

#include "engines/CAssemblyFile.h"

namespace qv {

std::string StoredFormatName(const char* path) {
  std::string name;
  if (const auto engine = CreateAssemblyEngine(path)) engine->ReadFormatName(name, path);
  return name;
}

}  // namespace qv
