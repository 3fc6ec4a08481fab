#pragma once

#include "dialogs/windows/Resources.h"
#include "tests/dialogs/DialogDriver.h"

#include <windows.h>

#include <string>

inline std::wstring WideOf(const std::string& utf8) {
  std::wstring wide(utf8.size(), L'\0');
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(),
                                         static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

inline std::string Utf8Of(const std::wstring& wide) {
  std::string utf8(wide.size() * 3, '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                                         static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(length));
  return utf8;
}

/// As the window itself has it; a control's text is another matter where it is an edit.
inline std::wstring CaptionOf(HWND window) {
  wchar_t text[256]{};
  InternalGetWindowText(window, text, 256);  // asks the system, not a thread that may be at work
  return text;
}

inline std::wstring WindowText(HWND window) {
  wchar_t text[1024]{};
  SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
  return text;
}

/// A dialog or message box of this process whose title starts so.
inline HWND FindDialogWindow(const std::wstring& title) {
  struct Search {
    const std::wstring& title;
    HWND found = nullptr;
  } search{title};
  // Not one window after the other: a foreign one may end in between, and with it the walk.
  EnumWindows(
      [](HWND window, LPARAM given) -> BOOL {
        Search& wanted = *reinterpret_cast<Search*>(given);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        wchar_t kind[16]{};
        if (process != GetCurrentProcessId() || GetClassNameW(window, kind, 16) == 0) return TRUE;
        const bool isFound = std::wstring(kind) == L"#32770" && CaptionOf(window).starts_with(wanted.title);
        if (isFound) wanted.found = window;
        return isFound ? FALSE : TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

inline HWND OptionWindow() { return FindDialogWindow(L"Option"); }
inline HWND HeaderWindow() { return FindDialogWindow(L"User Header Items"); }

inline HWND PreviewWindow() { return FindDialogWindow(L"Preview"); }

inline Frame FrameOf(HWND window) {
  RECT frame{};
  GetWindowRect(window, &frame);
  return {frame.left, frame.top, frame.right, frame.bottom};
}

inline HWND WindowOf(Control control) {
  static constexpr int kIds[] = {
#define AS_ID(name, kind, window, id, text) id,
      DIALOG_CONTROLS(AS_ID)
#undef AS_ID
  };
  const HWND window = FindDialogWindow(WideOf(TitleOf(RowOf(control).window)));
  const int id = kIds[static_cast<int>(control)];
  return id == 0 ? window : GetDlgItem(window, id);
}
