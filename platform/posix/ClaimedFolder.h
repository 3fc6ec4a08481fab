#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>

namespace qv {

/// Claims a hidden folder beside `target` (beside the file behind it, if it is a link) as the place for its
/// new content. The folder is named after the target, so that the next run finds what a killed one left, and
/// holds a lock that dies with the process, so that a run at work is told from a dead one. Null, with
/// `reason`, when the target may not be written or its folder takes no entries.
std::unique_ptr<WorkingFile> ClaimWorkingFile(const std::string& target, std::string& reason);

}  // namespace qv
