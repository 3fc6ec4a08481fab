#pragma once

#include <string>

namespace qv {

/// Loads a shared library by its base name ("ConfigurationManager": .dll on Windows, .so elsewhere), first
/// beside the running program, then by the system's search. Null when it cannot be had. Never unloaded.
void* LoadLibraryByName(const char* baseName);

/// The address of an exported function; null when there is none.
void* FindFunction(void* library, const char* name);

/// The path of a component that the library loads only when it is needed: beside the library or in the
/// folder "qvassembly" there, or where a program of the same installation finds it. Empty when it is not
/// installed. Elsewhere than on Windows.
std::string FindComponent(const std::string& fileName);

}  // namespace qv
