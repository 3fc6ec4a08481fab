#pragma once

#include <string>

namespace qv {

/// The program folder of the LibreOffice that workbooks go through: the one that QVASSEMBLY_OFFICE names if
/// it is set, else the one whose soffice stands in PATH, else one at a usual place. Empty when there is none.
std::string FindOfficeFolder();

}  // namespace qv
