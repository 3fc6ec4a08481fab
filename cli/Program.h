#pragma once

#include "cli/Streams.h"

#include <string>
#include <vector>

namespace qv {

/// Does what the command line (UTF-8, the program's own name first) asks for and returns the exit code.
int RunProgram(const std::vector<std::string>& arguments, const Streams& streams);

}  // namespace qv
