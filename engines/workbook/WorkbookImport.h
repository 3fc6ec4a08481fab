#pragma once

class CAssemblyFile;

namespace qv {

/// Reads the header row and the records of a workbook's active sheet into the engine. Reports true whatever
/// was read.
template <class Record>
bool ImportWorkbook(CAssemblyFile& engine, const char* path);

}  // namespace qv
