#include "manager/SettingsFile.h"
#include "platform/FileSystem.h"
#include "tests/dialogs/DialogDriver.h"

DialogHost TheDialogHost() {
  return {qv::kLineEnd == "\n" ? "gtk" : "win32", SettingsFilePath(), ShowFormatOptionDialog};
}
