#pragma once

#include "dialogs/windows/Resources.h"
#include "tests/dialogs/DialogDriver.h"

#include <windows.h>

#include <chrono>
#include <string>
#include <thread>

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

inline std::wstring WindowText(HWND window) {
  wchar_t text[1024]{};
  SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
  return text;
}

/// A dialog or message box of this process.
inline HWND FindDialogWindow(const wchar_t* title) {
  for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32770", title)) != nullptr;) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) return window;
  }
  return nullptr;
}

inline HWND OptionWindow() { return FindDialogWindow(L"Option"); }
inline HWND HeaderWindow() { return FindDialogWindow(L"User Header Items"); }

inline HWND WindowOf(Control control) {
  static constexpr int kIds[] = {
      IDC_FORMAT_NAME,  IDC_DEFAULT,        IDC_START_LINE, IDC_QUALIFIER,  IDC_TAB,       IDC_SEMICOLON,
      IDC_COMMA,        IDC_SPACE,          IDC_OTHER,      IDC_OTHER_TEXT, IDC_NAME_ONLY, IDC_NAME_WITH_PATH,
      IDC_TREAT_AS_ONE, IDC_PLAN,           IDC_SEQUENCE,   IDC_ADD,        IDC_DELETE,    IDC_UP,
      IDC_DOWN,         IDC_TOGGLE_HEADERS, IDOK,           IDCANCEL,       IDC_REFRESH,   IDC_HEADERS};
  const bool isInHeaderWindow = control == Control::Refresh || control == Control::Headers;
  return GetDlgItem(isInHeaderWindow ? HeaderWindow() : OptionWindow(), kIds[static_cast<int>(control)]);
}

/// Waits until the windows have become as they should.
template <class Condition>
bool WaitUntil(Condition isSo) {
  for (int attempt = 0; attempt < 1000; ++attempt) {
    if (isSo()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}
