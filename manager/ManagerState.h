#pragma once

#include "engines/AttachedRecord.h"
#include "manager/CAssemblyFileMgr.h"

#include <memory>
#include <tuple>
#include <vector>

/// The records that a host attached to a manager for export, in the order in which it attached them. Copies
/// share the records.
struct CAssemblyFileMgr::State {
  template <class Record>
  struct ExportList {
    std::vector<std::shared_ptr<qv::AttachedRecord>> records;
  };

  template <class Record>
  std::vector<std::shared_ptr<qv::AttachedRecord>>& Of() {
    return std::get<ExportList<Record>>(lists).records;
  }

  std::tuple<ExportList<PartInformation>, ExportList<ToolInformation>, ExportList<MaterialInfomation>,
             ExportList<ShtInfo>, ExportList<PrtInfo>, ExportList<JobProgressInfo>>
      lists;
};
