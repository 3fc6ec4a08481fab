#pragma once

class CAssemblyFile;

namespace qv {

/// Writes the staged records of the first kind that has columns to a text file, with the engine's qualifier
/// and delimiter. An existing file is replaced as a whole or left as it is, as it also is when what feeds the
/// records gives up. True whatever was written.
bool ExportRows(CAssemblyFile& engine, const char* path);

}  // namespace qv
