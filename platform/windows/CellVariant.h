#pragma once

#include "platform/windows/Automation.h"

#include <string>

namespace qv {

/// A cell's value as text of the process's code page, by the standard conversion: numbers as English has
/// them, dates in the user's order, an error by its name. Throws SpreadsheetError for what is no value.
std::string CellText(const VARIANT& value);

}  // namespace qv
