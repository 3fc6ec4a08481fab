#pragma once

#include <string>

namespace qv {

/// The path of a component that the library loads only when it is needed: beside the library or in the
/// folder "qvassembly" there, or where a program of the same installation finds it. Empty when it is not
/// installed.
std::string FindComponent(const std::string& fileName);

}  // namespace qv
