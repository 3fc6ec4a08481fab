#pragma once

namespace qv {

/// Loads a shared library by its base name ("ConfigurationManager": .dll on Windows, .so elsewhere), first
/// beside the running program, then by the system's search. Null when it cannot be had. Never unloaded.
void* LoadLibraryByName(const char* baseName);

/// The address of an exported function; null when there is none.
void* FindFunction(void* library, const char* name);

}  // namespace qv
