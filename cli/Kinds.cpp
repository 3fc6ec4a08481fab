#include "cli/Kinds.h"

#include "cli/Errors.h"

#include <QVAssemblyFile/QVAssemblyFile.h>

namespace qv {
namespace {

using Manager = CAssemblyFileMgr;

template <auto Function>
bool OnFile(Manager& manager, char* path) {
  return (manager.*Function)(path);
}

template <auto Function>
int Count(Manager& manager) {
  return (manager.*Function)();
}

template <auto Function>
void* At(Manager& manager, int rank) {
  return (manager.*Function)(rank);
}

template <class Record, bool (Manager::*Function)(char*, RecordHandler<Record>, void*)>
bool Read(Manager& manager, char* path, const TakeRecord& take) {
  const auto handler = [](Record* record, void* context) {
    return (*static_cast<const TakeRecord*>(context))(record);
  };
  return (manager.*Function)(path, handler, const_cast<TakeRecord*>(&take));
}

template <class Record, bool (Manager::*Function)(char*, RecordFeed<Record>, void*)>
bool Write(Manager& manager, char* path, const FeedRecords& feed) {
  const auto feeder = [](RecordSink<Record>& sink, void* context) {
    return (*static_cast<const FeedRecords*>(context))(
        [&sink](void* record) { return sink.Write(*static_cast<const Record*>(record)); });
  };
  return (manager.*Function)(path, feeder, const_cast<FeedRecords*>(&feed));
}

constexpr KindOperations kOperations[] = {
    {RecordKind::Parts, OnFile<&Manager::ImportAssemblyFile>, Count<&Manager::GetPartsCount>,
     At<&Manager::GetPartInfoAtRank>, Read<PartInformation, &Manager::ReadAssemblyFile>,
     Write<PartInformation, &Manager::WriteAssemblyFile>, true},
    {RecordKind::Tools, OnFile<&Manager::ImportToolsAssemblyFile>, Count<&Manager::GetToolsCount>,
     At<&Manager::GetToolInfoAtRank>, Read<ToolInformation, &Manager::ReadToolsAssemblyFile>,
     Write<ToolInformation, &Manager::WriteToolsInfoAssemblyFile>, true},
    {RecordKind::Materials, OnFile<&Manager::ImportMatsAssemblyFile>, Count<&Manager::GetMatsCount>,
     At<&Manager::GetMatInfoAtRank>, Read<MaterialInfomation, &Manager::ReadMatsAssemblyFile>,
     Write<MaterialInfomation, &Manager::WriteMatsInfoAssemblyFile>, true},
    {RecordKind::Sheets, OnFile<&Manager::ImportShtInfoAssemblyFile>, Count<&Manager::GetShtCount>,
     At<&Manager::GetShtInfoAtRank>, Read<ShtInfo, &Manager::ReadShtInfoAssemblyFile>,
     Write<ShtInfo, &Manager::WriteShtInfoAssemblyFile>, true},
    {RecordKind::PartPrograms, OnFile<&Manager::ImportPrtInfoAssemblyFile>,
     Count<&Manager::GetPrtCountInMenu>, At<&Manager::GetPrtInfoInMenuAtRank>,
     Read<PrtInfo, &Manager::ReadPrtInfoAssemblyFile>, Write<PrtInfo, &Manager::WritePrtInfoAssemblyFile>,
     true},
    {RecordKind::MaterialInventory, OnFile<&Manager::ImportMatAmncITAssemblyFile>,
     Count<&Manager::GetMatAmncITCount>, At<&Manager::GetMatAmncITInfoAtRank>,
     Read<MatAmncITInfo, &Manager::ReadMatAmncITAssemblyFile>, nullptr, false},
    {RecordKind::MaterialLibrary, OnFile<&Manager::ImportMatLibraryAssemblyFile>,
     Count<&Manager::GetMatLibraryInfoCount>, At<&Manager::GetMatLibraryInfoAtRank>,
     Read<MatLibraryInfo, &Manager::ReadMatLibraryAssemblyFile>, nullptr, false},
    {RecordKind::JobProgress, nullptr, nullptr, nullptr, nullptr,
     Write<JobProgressInfo, &Manager::WriteJobProgressAssemblyFile>, false},
};

bool Fits(const KindOperations& kind, KindUse use) {
  const bool isRead = use == KindUse::Export || kind.readFile != nullptr;
  const bool isWritten = use == KindUse::Import || kind.writeFile != nullptr;
  return isRead && isWritten;
}

const char* WhyNot(const KindOperations& kind) {
  return kind.readFile == nullptr ? "is only ever written" : "is only ever read";
}

}  // namespace

const KindOperations& OperationsOf(RecordKind kind) { return kOperations[static_cast<std::size_t>(kind)]; }

std::string KindNames(KindUse use) {
  std::string names;
  for (const KindOperations& kind : kOperations)
    if (Fits(kind, use)) names.append(names.empty() ? "" : ", ").append(RecordTypeOf(kind.kind).name);
  return names;
}

RecordKind KindForUse(const std::string& name, KindUse use) {
  const std::string choice = "; the kind is one of " + KindNames(use);
  if (name.empty()) throw UsageError("--kind is missing" + choice);
  for (const KindOperations& kind : kOperations) {
    if (RecordTypeOf(kind.kind).name != name) continue;
    if (!Fits(kind, use)) throw UsageError("--kind " + name + ": this kind " + WhyNot(kind) + choice);
    return kind.kind;
  }
  throw UsageError("--kind " + name + ": there is no such kind" + choice);
}

}  // namespace qv
