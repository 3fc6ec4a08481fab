#include "cli/records/Kinds.h"

#include "cli/Errors.h"

namespace qv {
namespace {

bool Fits(RecordKind kind, KindUse use) {
  if (use == KindUse::Any) return true;
  const bool isRead = use == KindUse::Export || IsImported(kind);
  const bool isWritten = use == KindUse::Import || IsExported(kind);
  return isRead && isWritten;
}

RecordKind KindAt(std::size_t index) { return static_cast<RecordKind>(index); }

}  // namespace

std::string KindNames(KindUse use) {
  std::string names;
  for (std::size_t index = 0; index < kRecordKindCount; ++index)
    if (Fits(KindAt(index), use))
      names.append(names.empty() ? "" : ", ").append(RecordTypeOf(KindAt(index)).name);
  return names;
}

RecordKind KindForUse(const std::string& name, KindUse use) {
  const std::string choice = "; the kind is one of " + KindNames(use);
  if (name.empty()) throw UsageError("--kind is missing" + choice);
  for (std::size_t index = 0; index < kRecordKindCount; ++index) {
    const RecordKind kind = KindAt(index);
    if (RecordTypeOf(kind).name != name) continue;
    if (Fits(kind, use)) return kind;
    throw UsageError("--kind " + name + ": this kind is only ever " +
                     (IsImported(kind) ? "read" : "written") + choice);
  }
  throw UsageError("--kind " + name + ": there is no such kind" + choice);
}

}  // namespace qv
