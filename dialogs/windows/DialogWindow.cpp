#include "dialogs/windows/DialogWindow.h"

#include "platform/windows/WideText.h"

#include <commctrl.h>

#include <algorithm>

namespace qv {

namespace {

void InitControls() {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
}

/// The device context of a list, with the list's font in it.
class ListFont {
 public:
  explicit ListFont(HWND list)
      : list_(list),
        context_(GetDC(list)),
        before_(SelectObject(context_, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)))) {}
  ~ListFont() {
    SelectObject(context_, before_);
    ReleaseDC(list_, context_);
  }
  ListFont(const ListFont&) = delete;
  ListFont& operator=(const ListFont&) = delete;

  int WidthOf(const std::wstring& text) const {
    SIZE size{};
    GetTextExtentPoint32W(context_, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
  }

 private:
  HWND list_;
  HDC context_;
  HGDIOBJ before_;
};

}  // namespace

HINSTANCE OwnModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

INT_PTR DialogWindow::RunModal(int resource, HWND parent) {
  InitControls();
  return DialogBoxParamW(OwnModule(), MAKEINTRESOURCEW(resource), parent, Procedure,
                         reinterpret_cast<LPARAM>(this));
}

bool DialogWindow::Create(int resource, HWND parent) {
  InitControls();
  return CreateDialogParamW(OwnModule(), MAKEINTRESOURCEW(resource), parent, Procedure,
                            reinterpret_cast<LPARAM>(this)) != nullptr;
}

INT_PTR CALLBACK DialogWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM value) {
  if (message == WM_INITDIALOG) {
    auto* const opened = reinterpret_cast<DialogWindow*>(value);
    SetWindowLongPtrW(window, DWLP_USER, value);
    opened->window_ = window;
    opened->Opened();
    return TRUE;
  }
  auto* const self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr || message != WM_COMMAND) return FALSE;
  self->Commanded(LOWORD(wide), HIWORD(wide));
  return TRUE;
}

void DialogWindow::SetIcon(int button, int icon, const wchar_t* name) {
  const int size = GetSystemMetricsForDpi(SM_CXSMICON, GetDpiForWindow(window_));
  const auto handle = static_cast<HICON>(
      LoadImageW(OwnModule(), MAKEINTRESOURCEW(icon), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
  if (handle == nullptr) return;
  icons_.emplace_back(handle);
  SendMessageW(Control(button), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(handle));
  AddToolTip(button, name);
}

void DialogWindow::AddToolTip(int control, const wchar_t* text) const {
  const HWND tip =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_, nullptr, OwnModule(), nullptr);
  if (tip == nullptr) return;
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // also known to the older common controls
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(Control(control));
  std::wstring copy = text;
  tool.lpszText = copy.data();
  SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

std::wstring DialogWindow::TextOf(int control) const {
  const HWND window = Control(control);
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

void DialogWindow::FillList(int list, const std::vector<std::string>& texts) const {
  const HWND box = Control(list);
  const ListFont font(box);
  int width = 0;
  SendMessageW(box, WM_SETREDRAW, FALSE, 0);
  SendMessageW(box, LB_RESETCONTENT, 0, 0);
  for (const std::string& text : texts) {
    const std::wstring wide = Widen(text);
    width = std::max(width, font.WidthOf(wide));
    SendMessageW(box, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str()));
  }
  SendMessageW(box, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width + 4), 0);
  SendMessageW(box, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(box, nullptr, TRUE);
}

}  // namespace qv
