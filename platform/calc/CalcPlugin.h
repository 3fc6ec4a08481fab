#pragma once

#include "platform/SpreadsheetApplication.h"

/// The one door between the library and the component that speaks to LibreOffice, which is loaded at run time
/// so that the library itself needs no LibreOffice.
namespace qv {

/// Raised whenever this door or the interfaces behind it change, so that a component of another build is
/// refused.
inline constexpr int kCalcPluginVersion = 1;

inline constexpr char kCalcPluginFile[] = "QVAssemblyFileCalc.so";
inline constexpr char kCalcPluginEntry[] = "QVStartCalc";

/// Starts the office whose program folder is given; null, with `reason`, when that fails. The caller owns the
/// result. Never throws.
using CalcPluginStart = SpreadsheetApplication* (*)(int version, const char* programFolder,
                                                    std::string* reason);

}  // namespace qv
