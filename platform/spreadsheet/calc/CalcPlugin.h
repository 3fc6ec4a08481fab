#pragma once

#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/spreadsheet/WorkbookFacts.h"

/// The interface between the library and the component for LibreOffice, which is loaded at run time so that
/// the library itself links no LibreOffice.
namespace qv {

/// Incremented whenever this interface or those that it hands out change, so that a component of another
/// build is refused.
inline constexpr int kCalcPluginVersion = 3;

inline constexpr char kCalcPluginFile[] = "QVAssemblyFileCalc.so";
inline constexpr char kCalcPluginEntry[] = "QVStartCalc";

/// Starts the office whose program folder is given; null, with `reason`, when that fails. The caller owns the
/// result. Never throws.
using CalcPluginStart = SpreadsheetApplication* (*)(int version, const char* programFolder,
                                                    WorkbookInspector inspect, std::string* reason);

/// The program folder of the LibreOffice that workbooks go through: the one that QVASSEMBLY_OFFICE names if
/// it is set, else the one whose soffice is in PATH, else one at a usual place. Empty when there is none.
std::string FindOfficeFolder();

}  // namespace qv
