#pragma once

#include "PlainPart.h"

#include <memory>
#include <string>
#include <vector>

namespace bench {

using PlainRecords = std::vector<std::unique_ptr<PlainPart>>;

/// A parts import as it is first written: a line from the stream, a list of strings from the line, and a new
/// record whose fields are cleared and then set from the strings by the column's keyword.
PlainRecords ReadPlainly(const std::string& path);

}  // namespace bench
