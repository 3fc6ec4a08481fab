#pragma once

class CAssemblyFile;

namespace qv {

/// Writes the staged records of the first kind that has columns into a new workbook and puts it in the place
/// of the file at `path`. False, with a remark, when the file stands as it was.
bool ExportWorkbook(CAssemblyFile& engine, const char* path);

}  // namespace qv
