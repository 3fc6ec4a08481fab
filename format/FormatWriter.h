#pragma once

#include "format/FormatList.h"
#include "platform/XmlDocument.h"

/// Builds the format file of `list` in an empty document. Throws std::runtime_error when a node cannot be
/// made.
void WriteFormats(const FormatList& list, qv::XmlDocument& document);
