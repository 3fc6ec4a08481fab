#include "ImportKind.h"

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <stdexcept>
#include <string>

namespace bench {
namespace {

using M = CAssemblyFileMgr;

constexpr ImportKind kKinds[] = {
    {"parts", &M::ImportAssemblyFile, &M::GetPartsCount, sizeof(PartInformation)},
    {"tools", &M::ImportToolsAssemblyFile, &M::GetToolsCount, sizeof(ToolInformation)},
    {"materials", &M::ImportMatsAssemblyFile, &M::GetMatsCount, sizeof(MaterialInfomation)},
    {"sheets", &M::ImportShtInfoAssemblyFile, &M::GetShtCount, sizeof(ShtInfo)},
    {"part-programs", &M::ImportPrtInfoAssemblyFile, &M::GetPrtCountInMenu, sizeof(PrtInfo)},
    {"material-inventory", &M::ImportMatAmncITAssemblyFile, &M::GetMatAmncITCount, sizeof(MatAmncITInfo)},
    {"material-library", &M::ImportMatLibraryAssemblyFile, &M::GetMatLibraryInfoCount,
     sizeof(MatLibraryInfo)},
};

}  // namespace

const ImportKind& KindOfFormat(std::string_view format) {
  for (const ImportKind& kind : kKinds)
    if (format.substr(0, format.rfind('-')) == kind.name) return kind;
  throw std::out_of_range("no kind has the format " + std::string(format));
}

}  // namespace bench
