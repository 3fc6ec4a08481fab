#pragma once

#include "format/FormatList.h"

class CAssemblyFileMgr;

namespace qv {

/// For those who have loaded a format file already.
struct ManagerFormats {
  /// Makes the manager and its copies hold these formats, as if it had loaded them itself.
  static void Set(CAssemblyFileMgr& manager, FormatList formats);
};

}  // namespace qv
