#pragma once

#include "cli/DataFile.h"
#include "cli/TextCoding.h"

#include <cstdint>
#include <vector>

namespace qv {

/// What would help a data file that does not fit its format, where it is certain: another delimiter, another
/// header line, the keyword that was meant. Looks at the start of the file only, whatever its length; `rows`
/// is how many were found in all of it, `hasMisfits` whether some of them did not fit the format's columns.
std::vector<Remark> Suggestions(const DataFile& file, std::int64_t rows, bool hasMisfits,
                                const TextCoding& coding);

}  // namespace qv
