#pragma once

#include "format/FormatList.h"
#include "platform/XmlDocument.h"

#include <string>

/// Reads the formats under the root of a format file into `list`. `path` is for remarks only. Throws
/// std::runtime_error when a node cannot be read; what was read before it stays in the list.
void ReadFormats(const qv::XmlNode& root, const std::string& path, FormatList& list);
