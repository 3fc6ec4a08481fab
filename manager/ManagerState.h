#pragma once

#include "engines/AttachedRecord.h"
#include "engines/FileDiagnostics.h"
#include "format/FormatList.h"
#include "manager/CAssemblyFileMgr.h"
#include "records/RecordKind.h"

#include <array>
#include <memory>
#include <vector>

/// The records that a host attached to a manager for export, in the order in which it attached them. Copies
/// share the records.
struct CAssemblyFileMgr::State {
  template <class Record>
  std::vector<std::shared_ptr<qv::AttachedRecord>>& Of() {
    return lists[static_cast<std::size_t>(kRecordKindOf<Record>)];
  }

  std::array<std::vector<std::shared_ptr<qv::AttachedRecord>>, kRecordKindCount> lists;
};

namespace qv {

/// For those who have loaded a format file already.
struct ManagerFormats {
  /// Makes the manager and its copies hold these formats, as if it had loaded them itself.
  static void Set(CAssemblyFileMgr& manager, FormatList formats);
};

/// What every import and export starts with: puts an engine for the diagnostics' file, with the current
/// format for the kind, in the place of the manager's. False when there is nothing to go on with; the manager
/// has no engine then.
bool StartEngine(const std::shared_ptr<FormatConfiguration>& configuration,
                 std::shared_ptr<CAssemblyFile>& engine, RecordKind kind, FileDiagnostics& diagnostics);

}  // namespace qv
