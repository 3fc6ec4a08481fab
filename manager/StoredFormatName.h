#pragma once

#include <string>

namespace qv {

/// The format name that the data file at `path` carries, as it stands there, whether or not any configuration
/// holds a format of that name. Empty when the file carries none, cannot be read or is of no supported type;
/// the latter two are told to the diagnostic handler.
std::string StoredFormatName(const char* path);

}  // namespace qv
