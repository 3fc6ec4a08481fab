#pragma once

#include "cli/RecordFields.h"

#include <QVAssemblyFile/RecordKind.h>

#include <functional>
#include <string>

class CAssemblyFileMgr;

namespace qv {

/// What is asked of a kind.
enum class KindUse { Import, Export, Convert };

/// The kind by its name. Throws UsageError for an unknown name, and for a kind that cannot be used so.
RecordKind KindForUse(const std::string& name, KindUse use);

/// The names of all kinds that can be used so: "parts, tools, …".
std::string KindNames(KindUse use);

/// Takes a record of a kind that both sides know; false when no more are wanted. Must not throw.
using TakeRecord = std::function<bool(void* record)>;

/// Hands all records of a file to `write`; false when the file is to be given up. Must not throw.
using FeedRecords = std::function<bool(const TakeRecord& write)>;

/// What the manager offers for one kind. The import-only kinds have no `writeFile`, the export-only one has
/// that alone.
struct KindOperations {
  RecordKind kind;
  bool (*importFile)(CAssemblyFileMgr& manager, char* path);
  int (*count)(CAssemblyFileMgr& manager);
  void* (*at)(CAssemblyFileMgr& manager, int rank);
  bool (*readFile)(CAssemblyFileMgr& manager, char* path, const TakeRecord& take);
  bool (*writeFile)(CAssemblyFileMgr& manager, char* path, const FeedRecords& feed);
  bool readsWorkbooks;
};

const KindOperations& OperationsOf(RecordKind kind);

}  // namespace qv
