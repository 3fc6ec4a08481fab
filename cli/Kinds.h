#pragma once

#include "cli/RecordFields.h"

#include <QVAssemblyFile/RecordKind.h>

#include <string>

class CAssemblyFileMgr;

namespace qv {

/// What is asked of a kind.
enum class KindUse { Import, Export, Convert };

/// The kind by its name. Throws UsageError for an unknown name, and for a kind that cannot be used so.
RecordKind KindForUse(const std::string& name, KindUse use);

/// The names of all kinds that can be used so: "parts, tools, …".
std::string KindNames(KindUse use);

/// What the manager offers for one kind. The import-only kinds have neither `attach` nor `exportFile`, the
/// export-only one has neither `importFile`, `count` nor `at`.
struct KindOperations {
  RecordKind kind;
  bool (*importFile)(CAssemblyFileMgr& manager, char* path);
  int (*count)(CAssemblyFileMgr& manager);
  void* (*at)(CAssemblyFileMgr& manager, int rank);
  void* (*copy)(void* record);
  void (*attach)(CAssemblyFileMgr& manager, void* record);
  bool (*exportFile)(CAssemblyFileMgr& manager, char* path);
  bool readsWorkbooks;
};

const KindOperations& OperationsOf(RecordKind kind);

}  // namespace qv
