#include "dialogs/gtk/DialogModule.h"

#include "dialogs/gtk/OptionWindow.h"

#include <gtk/gtk.h>

#define DIALOG_MODULE_FUNCTION extern "C" __attribute__((visibility("default")))

namespace {

// The host's numbers must not change their decimal point because a dialog was opened. A host that uses GTK
// itself has decided already.
void KeepLocale() {
  static bool isDecided = gdk_display_get_default() != nullptr;
  if (!isDecided) gtk_disable_setlocale();
  isDecided = true;
}

}  // namespace

DIALOG_MODULE_FUNCTION bool QvHasDisplay() {
  KeepLocale();
  return gtk_init_check(nullptr, nullptr) != FALSE;
}

DIALOG_MODULE_FUNCTION bool QvRunFormatOptionDialog(qv::FormatOptionCommands& commands) {
  return qv::OptionWindow(commands).Run();
}
