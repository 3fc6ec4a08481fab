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
  int option = 0;          ///< kept for the host
};

/// Whether this build has a dialog to show. Defined by dialogs/.
bool HasFormatOptionDialog();

/// Runs the dialog modally; true when it ended with OK and the format file was saved. Defined by dialogs/.
bool ShowFormatOptionDialog(const FormatOptionRequest& request);
