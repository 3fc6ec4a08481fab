#pragma once

#include "format/FormatList.h"

#include <string>

namespace qv {

/// The format, or all formats of a list, as a JSON document.
std::string FormatJson(const OptionForm& form);
std::string FormatListJson(const FormatList& list);

}  // namespace qv
