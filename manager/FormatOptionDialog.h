#pragma once

#include "platform/WindowHandle.h"

#include <string>

/// What the host asks of the format option dialog.
struct FormatOptionRequest {
  bool offersHeaders = false;  ///< show the button for the header window
  std::string formatName;      ///< the format to select; empty: the current one
  HWND parent = nullptr;
  std::string configPath;  ///< the format file that is edited
  std::string samplePath;  ///< a data file whose headers can be shown; may be empty
  int option = 0;          ///< not used
};

/// Why the dialog cannot be shown here, as a sentence for a person; empty when it can. Defined by dialogs/,
/// as is the next.
std::string WhyNoFormatOptionDialog();

/// Runs the dialog modally; true when it ended with OK and the format file was saved. Where it cannot be
/// shown, a message box says why.
bool ShowFormatOptionDialog(const FormatOptionRequest& request);
