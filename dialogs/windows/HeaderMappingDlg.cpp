#include "dialogs/windows/HeaderMappingDlg.h"

#include "dialogs/windows/Resources.h"

namespace {

// One dialog at a time runs on a thread.
thread_local HWND shownHeaders = nullptr;

bool IsForHeaders(const MSG& message) {
  return shownHeaders != nullptr &&
         (message.hwnd == shownHeaders || IsChild(shownHeaders, message.hwnd) != FALSE);
}

// The modal loop of the dialog knows nothing of this window's Tab, Enter and Escape. To look at a message
// calls this function again.
LRESULT CALLBACK TakeKeys(int code, WPARAM wide, LPARAM parameter) {
  thread_local bool isLooking = false;
  MSG& message = *reinterpret_cast<MSG*>(parameter);
  if (code == MSGF_DIALOGBOX && !isLooking && IsForHeaders(message)) {
    isLooking = true;
    const bool isTaken = IsDialogMessageW(shownHeaders, &message) != FALSE;
    isLooking = false;
    if (isTaken) return TRUE;
  }
  return CallNextHookEx(nullptr, code, wide, parameter);
}

}  // namespace

HeaderMappingDlg::~HeaderMappingDlg() {
  if (keys_ != nullptr) UnhookWindowsHookEx(keys_);
  shownHeaders = nullptr;
  if (IsWindow(Window()) != FALSE) DestroyWindow(Window());
}

bool HeaderMappingDlg::CreateHidden(HWND dialog) {
  if (!Create(IDD_HEADERS, dialog)) return false;
  shownHeaders = Window();
  keys_ = SetWindowsHookExW(WH_MSGFILTER, TakeKeys, nullptr, GetCurrentThreadId());
  return true;
}

void HeaderMappingDlg::Opened() { SetIcon(IDC_REFRESH, IDI_REFRESH, L"Refresh"); }

void HeaderMappingDlg::Commanded(int control, int) {
  if (control == IDC_REFRESH) commands_.Run(qv::OptionCommand::RefreshHeaders);
  if (control == IDCANCEL) commands_.Run(qv::OptionCommand::ToggleHeaders);
}

void HeaderMappingDlg::Refill(const std::vector<std::string>& headers) const {
  FillList(IDC_HEADERS, headers);
}

void HeaderMappingDlg::ShowBeside(HWND dialog) const {
  RECT beside{}, own{};
  GetWindowRect(dialog, &beside);
  GetWindowRect(Window(), &own);
  SetWindowPos(Window(), nullptr, beside.right, beside.bottom - (own.bottom - own.top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);
}
