#include "dialogs/FormatOptionPresenter.h"
#include "dialogs/windows/CCsvOptionDlg.h"
#include "manager/FormatOptionDialog.h"
#include "manager/SettingsFile.h"
#include "platform/MessageBox.h"
#include "platform/windows/WideText.h"

std::string WhyNoFormatOptionDialog() { return {}; }

bool ShowFormatOptionDialog(const FormatOptionRequest& request) {
  qv::FormatOptionPresenter presenter(request, SettingsFilePath());
  CCsvOptionDlg dialog(presenter, request.parent);
  const INT_PTR result = dialog.DoModal();
  if (result != IDOK && result != IDCANCEL) {
    const std::string reason = qv::SystemReason(GetLastError());
    qv::ShowMessage(("The format option dialog cannot be shown (" + reason + ").").c_str());
  }
  return result == IDOK;
}
