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

template <class Record>
void* Copy(void* record) {
  return new Record(*static_cast<const Record*>(record));
}

template <class Record, void (Manager::*Function)(Record*)>
void Attach(Manager& manager, void* record) {
  (manager.*Function)(static_cast<Record*>(record));
}

constexpr KindOperations kOperations[] = {
    {RecordKind::Parts, OnFile<&Manager::ImportAssemblyFile>, Count<&Manager::GetPartsCount>,
     At<&Manager::GetPartInfoAtRank>, Copy<PartInformation>,
     Attach<PartInformation, &Manager::AddAndAttachPart>, OnFile<&Manager::ExportAssemblyFile>, true},
    {RecordKind::Tools, OnFile<&Manager::ImportToolsAssemblyFile>, Count<&Manager::GetToolsCount>,
     At<&Manager::GetToolInfoAtRank>, Copy<ToolInformation>,
     Attach<ToolInformation, &Manager::AddAndAttachTool>, OnFile<&Manager::ExportToolsInfoAssemblyFile>,
     true},
    {RecordKind::Materials, OnFile<&Manager::ImportMatsAssemblyFile>, Count<&Manager::GetMatsCount>,
     At<&Manager::GetMatInfoAtRank>, Copy<MaterialInfomation>,
     Attach<MaterialInfomation, &Manager::AddAndAttachMat>, OnFile<&Manager::ExportMatsInfoAssemblyFile>,
     true},
    {RecordKind::Sheets, OnFile<&Manager::ImportShtInfoAssemblyFile>, Count<&Manager::GetShtCount>,
     At<&Manager::GetShtInfoAtRank>, Copy<ShtInfo>, Attach<ShtInfo, &Manager::AddAndAttachShtInfo>,
     OnFile<&Manager::ExportShtInfoAssemblyFile>, true},
    {RecordKind::PartPrograms, OnFile<&Manager::ImportPrtInfoAssemblyFile>,
     Count<&Manager::GetPrtCountInMenu>, At<&Manager::GetPrtInfoInMenuAtRank>, Copy<PrtInfo>,
     Attach<PrtInfo, &Manager::AddAndAttachPrtInfo>, OnFile<&Manager::ExportPrtInfoAssemblyFile>, true},
    {RecordKind::MaterialInventory, OnFile<&Manager::ImportMatAmncITAssemblyFile>,
     Count<&Manager::GetMatAmncITCount>, At<&Manager::GetMatAmncITInfoAtRank>, nullptr, nullptr, nullptr,
     false},
    {RecordKind::MaterialLibrary, OnFile<&Manager::ImportMatLibraryAssemblyFile>,
     Count<&Manager::GetMatLibraryInfoCount>, At<&Manager::GetMatLibraryInfoAtRank>, nullptr, nullptr,
     nullptr, false},
    {RecordKind::JobProgress, nullptr, nullptr, nullptr, nullptr,
     Attach<JobProgressInfo, &Manager::AddAndAttachJobProgress>,
     OnFile<&Manager::ExportJobProgressAssemblyFile>, false},
};

bool Fits(const KindOperations& kind, KindUse use) {
  const bool isRead = use == KindUse::Export || kind.importFile != nullptr;
  const bool isWritten = use == KindUse::Import || kind.exportFile != nullptr;
  return isRead && isWritten;
}

const char* WhyNot(const KindOperations& kind) {
  return kind.importFile == nullptr ? "is only ever written" : "is only ever read";
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
