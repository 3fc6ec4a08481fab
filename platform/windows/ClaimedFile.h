#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>

namespace qv {

/// The working file for a new content of `target`, claimed by a lock file that the system removes with its
/// holder, even one that is killed. Null, with `reason`, when there can be none.
std::unique_ptr<WorkingFile> ClaimWorkingFile(const std::string& target, WorkingPlace place,
                                              std::string& reason);

}  // namespace qv
