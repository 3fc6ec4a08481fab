#include "manager/FormatOptionDialog.h"

#include "platform/MessageBox.h"

bool HasFormatOptionDialog() { return false; }

bool ShowFormatOptionDialog(const FormatOptionRequest&) {
  qv::ShowMessage("This build has no format option dialog.");
  return false;
}
