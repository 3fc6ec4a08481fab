#include "dialogs/SampleHeaders.h"

#include "engines/CAssemblyFile.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <string_view>

namespace qv {

namespace {

constexpr std::string_view kSampleExtensions[] = {".xls", ".csv", ".txt"};

bool HasSampleExtension(const std::string& path) {
  const std::size_t name = path.find_last_of("/\\") + 1;
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot < name) return false;
  const std::string_view extension = std::string_view(path).substr(dot);
  return std::find(std::begin(kSampleExtensions), std::end(kSampleExtensions), extension) !=
         std::end(kSampleExtensions);
}

}  // namespace

std::vector<std::string> ReadSampleHeaders(const std::string& samplePath, const OptionForm& form) {
  std::vector<std::string> headers;
  if (!HasSampleExtension(samplePath) || !Files().Exists(samplePath)) return headers;
  const std::unique_ptr<CAssemblyFile> engine = CreateAssemblyEngine(samplePath.c_str());
  if (engine == nullptr) return headers;
  engine->KindFlags[static_cast<std::size_t>(RecordKind::Parts)] = true;
  ApplyFormat(*engine, form, samplePath.c_str());
  engine->ReadHeaderOnly = true;
  engine->ImportParts(samplePath.c_str());
  for (std::size_t rank = 0; rank < engine->HeaderFields.Size(); ++rank)
    headers.emplace_back(engine->HeaderFields[rank]);
  return headers;
}

}  // namespace qv
