// A module of a host's that makes records of every kind and deletes them.

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <memory>
#include <tuple>

namespace {

template <class... Records>
void MakeAndDelete() {
  CAssemblyFileMgr manager;
  const std::tuple<std::unique_ptr<Records>...> records{std::make_unique<Records>()...};
}

}  // namespace

extern "C" void MakeAndDeleteRecords() {
  MakeAndDelete<PartInformation, ToolInformation, MaterialInfomation, ShtInfo, PrtInfo, MatAmncITInfo,
                MatLibraryInfo, JobProgressInfo>();
}
