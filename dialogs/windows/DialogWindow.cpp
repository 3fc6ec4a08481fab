#include "dialogs/windows/DialogWindow.h"

#include "platform/DynamicLibrary.h"
#include "platform/windows/WideText.h"

#include <commctrl.h>

#include <algorithm>
#include <cstddef>

namespace qv {

namespace {

void InitControls() {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
}

/// A dialog resource of this module. Below a parent, or in a process, whose windows run from right to left,
/// as hosts have them for Arabic and Hebrew, the dialog does so too.
std::vector<std::byte> TemplateOf(int resource, HWND parent) {
  const HRSRC found = FindResourceW(OwnModule(), MAKEINTRESOURCEW(resource), RT_DIALOG);
  const auto* const bytes = static_cast<const std::byte*>(LockResource(LoadResource(OwnModule(), found)));
  if (bytes == nullptr) return {};
  std::vector<std::byte> copy(bytes, bytes + SizeofResource(OwnModule(), found));
  DWORD layout = 0;
  const bool isOfProcess = GetProcessDefaultLayout(&layout) != FALSE && (layout & LAYOUT_RTL) != 0;
  const LONG_PTR parentStyle = parent == nullptr ? 0 : GetWindowLongPtrW(parent, GWL_EXSTYLE);
  constexpr std::size_t kExtendedStyle = 8;  // behind version, signature and help number
  if (isOfProcess || (parentStyle & WS_EX_LAYOUTRTL) != 0)
    copy.at(kExtendedStyle + 2) |= std::byte{WS_EX_LAYOUTRTL >> 16};
  return copy;
}

constexpr UINT_PTR kTimer = 1;
constexpr int kMaxTipWidth = 600;

TOOLINFOW ToolOf(HWND dialog, HWND control, std::wstring& text) {
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // also known to the older common controls
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = dialog;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text.data();
  return tool;
}

/// The side of a small icon in the window's resolution. Systems before Windows 10 1607 know one resolution
/// for all windows, and a library that imported their successors' functions would not load there.
int SmallIconSize(HWND window) {
  using DpiOfWindow = UINT(WINAPI*)(HWND);
  using MetricsForDpi = int(WINAPI*)(int, UINT);
  void* const user = GetModuleHandleW(L"user32.dll");
  const auto dpi = reinterpret_cast<DpiOfWindow>(FindFunction(user, "GetDpiForWindow"));
  const auto metrics = reinterpret_cast<MetricsForDpi>(FindFunction(user, "GetSystemMetricsForDpi"));
  return dpi != nullptr && metrics != nullptr ? metrics(SM_CXSMICON, dpi(window))
                                              : GetSystemMetrics(SM_CXSMICON);
}

/// The device context of a control, with the control's font in it.
class ControlFont {
 public:
  explicit ControlFont(HWND control)
      : control_(control),
        context_(GetDC(control)),
        before_(SelectObject(context_, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)))) {}
  ~ControlFont() {
    SelectObject(context_, before_);
    ReleaseDC(control_, context_);
  }
  ControlFont(const ControlFont&) = delete;
  ControlFont& operator=(const ControlFont&) = delete;

  int Height() const {
    TEXTMETRICW metrics{};
    GetTextMetricsW(context_, &metrics);
    return metrics.tmHeight;
  }

  int WidthOf(const std::wstring& text) const {
    SIZE size{};
    GetTextExtentPoint32W(context_, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
  }

  int HeightOf(const std::wstring& text, int width) const {
    RECT place{0, 0, width, 0};
    DrawTextW(context_, text.c_str(), static_cast<int>(text.size()), &place,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    return place.bottom;
  }

 private:
  HWND control_;
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
  const auto copy = TemplateOf(resource, parent);
  return DialogBoxIndirectParamW(OwnModule(), reinterpret_cast<LPCDLGTEMPLATEW>(copy.data()), parent,
                                 Procedure, reinterpret_cast<LPARAM>(this));
}

bool DialogWindow::Create(int resource, HWND parent) {
  InitControls();
  const auto copy = TemplateOf(resource, parent);
  return CreateDialogIndirectParamW(OwnModule(), reinterpret_cast<LPCDLGTEMPLATEW>(copy.data()), parent,
                                    Procedure, reinterpret_cast<LPARAM>(this)) != nullptr;
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
  if (self == nullptr) return FALSE;
  if (message == WM_COMMAND)
    self->Commanded(LOWORD(wide), HIWORD(wide));
  else if (message == WM_DRAWITEM)
    self->DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(value));
  else if (message == WM_NOTIFY)
    SetWindowLongPtrW(window, DWLP_MSGRESULT, self->Notified(*reinterpret_cast<NMHDR*>(value)));
  else if (message == WM_SIZE)
    self->Resized();
  else if (message == WM_TIMER && wide == kTimer) {
    KillTimer(window, kTimer);
    self->TimerEnded();
  } else
    return FALSE;
  return TRUE;
}

void DialogWindow::SetIcon(int button, int icon, const wchar_t* name) {
  const int size = SmallIconSize(window_);
  const auto handle = static_cast<HICON>(
      LoadImageW(OwnModule(), MAKEINTRESOURCEW(icon), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
  if (handle == nullptr) return;
  icons_.emplace_back(handle);
  SendMessageW(Control(button), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(handle));
  AddToolTip(Control(button), name);
}

HWND DialogWindow::AddToolTip(HWND control, const wchar_t* text) const {
  const HWND tip =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_, nullptr, OwnModule(), nullptr);
  std::wstring copy = text;
  const TOOLINFOW tool = ToolOf(window_, control, copy);
  SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(tip, TTM_SETMAXTIPWIDTH, 0, kMaxTipWidth);  // lines are broken only with such a width
  return tip;
}

void DialogWindow::ChangeToolTip(HWND tip, HWND control, std::wstring text) const {
  const TOOLINFOW tool = ToolOf(window_, control, text);
  SendMessageW(tip, TTM_POP, 0, 0);
  SendMessageW(tip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

DialogWindow::OwnedFont DialogWindow::FontLike(HWND control, void (*change)(LOGFONTW& font)) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font, &font);
  change(font);
  return OwnedFont(CreateFontIndirectW(&font));
}

bool DialogWindow::TakeKeys(MSG& message) const {
  const bool isOwn = message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE;
  return isOwn && IsDialogMessageW(window_, &message) != FALSE;
}

void DialogWindow::StartTimer(unsigned milliseconds) const {
  SetTimer(window_, kTimer, milliseconds, nullptr);
}

qv::Selection DialogWindow::SelectionOf(int list) const {
  const LRESULT count = SendMessageW(Control(list), LB_GETSELCOUNT, 0, 0);
  std::vector<int> indexes(static_cast<std::size_t>(std::max<LRESULT>(count, 0)));
  SendMessageW(Control(list), LB_GETSELITEMS, indexes.size(), reinterpret_cast<LPARAM>(indexes.data()));
  return {indexes.begin(), indexes.end()};
}

int DialogWindow::HeightOf(int control, int width) const {
  return ControlFont(Control(control)).HeightOf(TextOf(control), width);
}

int DialogWindow::WidthOf(HWND control, const std::vector<std::string>& texts) {
  const ControlFont font(control);
  int width = 0;
  for (const std::string& text : texts) width = std::max(width, font.WidthOf(Widen(text)));
  return width;
}

std::wstring DialogWindow::TextOf(int control) const {
  const HWND window = Control(control);
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

void DialogWindow::FillList(int list, const std::vector<std::string>& texts) const {
  const HWND box = Control(list);
  SendMessageW(box, WM_SETREDRAW, FALSE, 0);
  SendMessageW(box, LB_SETITEMHEIGHT, 0,
               ControlFont(box).Height());  // an owner-drawn list does not ask the font
  SendMessageW(box, LB_RESETCONTENT, 0, 0);
  for (const std::string& text : texts)
    SendMessageW(box, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Widen(text).c_str()));
  SendMessageW(box, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(WidthOf(box, texts) + 4), 0);
  SendMessageW(box, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(box, nullptr, TRUE);
}

}  // namespace qv
