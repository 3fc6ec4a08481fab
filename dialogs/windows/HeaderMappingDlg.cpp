#include "dialogs/windows/HeaderMappingDlg.h"

#include "dialogs/windows/Resources.h"
#include "platform/windows/WideText.h"

HeaderMappingDlg::~HeaderMappingDlg() {
  if (IsWindow(Window()) != FALSE) DestroyWindow(Window());
}

void HeaderMappingDlg::Opened() {
  SetIcon(IDC_REFRESH, IDI_REFRESH, L"Refresh");
  AddToolTip(Control(IDC_MATCH), L"Makes the sequence of the items that these headings stand for");
}

void HeaderMappingDlg::Commanded(int control, int notification) {
  const bool isSelection = notification == LBN_SELCHANGE || notification == LBN_SELCANCEL;
  if (control == IDC_HEADERS && isSelection) commands_.Run(qv::OptionCommand::SelectHeaders);
  if (control == IDC_MATCH) commands_.Run(qv::OptionCommand::MatchHeaders);
  if (control == IDC_REFRESH) commands_.Run(qv::OptionCommand::RefreshHeaders);
  if (control == IDCANCEL) commands_.Run(qv::OptionCommand::ToggleHeaders);
}

void HeaderMappingDlg::ShowCaption(const std::string& caption) const {
  SetWindowTextW(Window(), qv::Widen(caption).c_str());
}

void HeaderMappingDlg::Refill(const std::vector<std::string>& headers) const {
  FillList(IDC_HEADERS, headers);
}

void HeaderMappingDlg::Select(const qv::Selection& selection) const {
  SendDlgItemMessageW(Window(), IDC_HEADERS, LB_SETSEL, FALSE, -1);
  for (const std::size_t index : selection)
    SendDlgItemMessageW(Window(), IDC_HEADERS, LB_SETSEL, TRUE, static_cast<LPARAM>(index));
}
