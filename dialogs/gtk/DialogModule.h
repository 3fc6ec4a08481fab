#pragma once

#include "dialogs/model/FormatOptionView.h"

namespace qv {

/// The functions of the dialog module, which the library loads when the dialog is asked for. The first tells
/// whether there is a display to show it on; the second runs it modally and returns true when it ended with
/// OK.
using HasDisplayFunction = bool (*)();
using RunDialogFunction = bool (*)(FormatOptionCommands& commands);

inline constexpr const char* kDialogModuleName = "QVAssemblyFileDialog";
inline constexpr const char* kHasDisplayName = "QvHasDisplay";
inline constexpr const char* kRunDialogName = "QvRunFormatOptionDialog";

}  // namespace qv
