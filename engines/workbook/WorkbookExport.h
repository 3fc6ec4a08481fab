#pragma once

class CAssemblyFile;

namespace qv {

/// Writes the staged records of the first kind that has columns into a new workbook and puts it in the place
/// of the file at `path`. False when the file stays as it was: with a remark, or because what feeds the
/// records gave up.
bool ExportWorkbook(CAssemblyFile& engine, const char* path);

}  // namespace qv
