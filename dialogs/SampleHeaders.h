#pragma once

#include "format/OptionForm.h"

#include <string>
#include <vector>

namespace qv {

/// The header row of a sample file as the format reads it. Empty when the path does not end in ".xls",
/// ".csv" or ".txt" (exactly so), when the file is not there, and when it has no header.
std::vector<std::string> ReadSampleHeaders(const std::string& samplePath, const OptionForm& form);

}  // namespace qv
