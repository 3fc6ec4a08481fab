#pragma once

class CTxtAssembly;

namespace qv {

/// Reads the file's header row into the engine's HeaderFields and its data rows into records of the kind, or
/// as many of them as are wanted. True whatever was read.
template <class Record>
bool ImportRows(CTxtAssembly& engine, const char* path);

}  // namespace qv
