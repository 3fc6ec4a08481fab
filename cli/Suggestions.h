#pragma once

#include "cli/FormatFile.h"
#include "cli/RecordFields.h"
#include "cli/TextCoding.h"

#include <vector>

namespace qv {

/// What would help a data file that does not fit its format, where it is certain: another delimiter, another
/// header line, the keyword that was meant. Looks at the start of the file only, whatever its length.
std::vector<Remark> Suggestions(const Utf8Path& file, const OptionForm& form, const RecordType& type,
                                const TextCoding& coding);

}  // namespace qv
