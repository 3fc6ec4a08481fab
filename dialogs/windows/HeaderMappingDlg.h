#pragma once

#include "dialogs/model/FormatOptionView.h"
#include "dialogs/windows/DialogWindow.h"
#include "dialogs/windows/Resources.h"

#include <string>
#include <vector>

/// The window "User Header Items": a hidden child of the format option dialog, shown beside it on demand.
class HeaderMappingDlg final : public qv::DialogWindow {
 public:
  explicit HeaderMappingDlg(qv::FormatOptionCommands& commands) : commands_(commands) {}
  ~HeaderMappingDlg() override;

  bool CreateHidden(HWND dialog) { return Create(IDD_HEADERS, dialog); }
  bool TakeMessage(MSG& message) const { return TakeKeys(message); }

  void ShowCaption(const std::string& caption) const;
  void Refill(const std::vector<std::string>& headers) const;
  void Select(const qv::Selection& selection) const;
  qv::Selection Selected() const { return SelectionOf(IDC_HEADERS); }

 private:
  void Opened() override;
  void Commanded(int control, int notification) override;

  qv::FormatOptionCommands& commands_;
};
