#pragma once

#include "cli/DataStart.h"
#include "cli/Session.h"
#include "cli/formats/FormatBuilder.h"
#include "engines/columns/RecordFields.h"

#include <string>
#include <vector>

namespace qv {

/// Completes what a user says of a format by what the data file shows: delimiter, qualifier, header line, and
/// as columns the keywords that its headings surely mean. What the user says wins. Returns the headings.
/// Throws FileError when the file cannot be read or has no header row.
std::vector<std::string> CompleteFromHeaders(FormatWishes& wishes, const Utf8Path& file,
                                             const RecordType& type, Session& session);

}  // namespace qv
