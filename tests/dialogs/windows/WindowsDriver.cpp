// Uses the dialog's windows by the messages that mouse and keyboard send to them.

#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/windows/DialogWindows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <thread>

namespace {

// The host's name, which its message boxes bear.
std::wstring ProgramName() {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring name = path;
  name.erase(0, name.find_last_of(L'\\') + 1);
  return name.substr(0, name.rfind(L'.'));
}

std::string WithoutMnemonic(std::wstring text) {
  text.erase(std::remove(text.begin(), text.end(), L'&'), text.end());
  return Utf8Of(text);
}

Frame FrameOf(HWND window) {
  RECT frame{};
  GetWindowRect(window, &frame);
  return {frame.left, frame.top, frame.right, frame.bottom};
}

bool IsComboBox(HWND window) {
  wchar_t name[32]{};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return std::wstring(name) == L"ComboBox";
}

class WindowsDriver final : public DialogDriver {
 public:
  // A message box keeps the button's message from returning.
  void Click(Control control) override {
    const HWND button = WindowOf(control);
    ASSERT_TRUE(IsWindowEnabled(button)) << "control " << static_cast<int>(control) << " is disabled";
    SendMessageTimeoutW(button, BM_CLICK, 0, 0, SMTO_NORMAL, 1500, nullptr);
  }

  void Choose(Control control, int rank) override {
    SendMessageW(WindowOf(control), CB_SETCURSEL, static_cast<WPARAM>(rank), 0);
    Notify(control, CBN_SELCHANGE);
  }

  void Type(Control control, const std::string& text) override {
    SendMessageW(WindowOf(control), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(WideOf(text).c_str()));
  }

  void Select(Control list, const qv::Selection& ranks) override {
    SendMessageW(WindowOf(list), LB_SETSEL, FALSE, -1);
    for (const std::size_t rank : ranks)
      SendMessageW(WindowOf(list), LB_SETSEL, TRUE, static_cast<LPARAM>(rank));
    Notify(list, LBN_SELCHANGE);
  }

  void DoubleClick(Control list, int rank) override {
    const HWND window = WindowOf(list);
    SendMessageW(window, LB_SETTOPINDEX, static_cast<WPARAM>(std::max(0, rank - 1)), 0);
    RECT row{};
    SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(rank), reinterpret_cast<LPARAM>(&row));
    const LPARAM place = MAKELPARAM(row.left + 5, (row.top + row.bottom) / 2);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
      SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, place);
  }

  void Press(Key key, Control focus) override {
    PostMessageW(WindowOf(focus), WM_KEYDOWN, key == Key::Enter ? VK_RETURN : VK_ESCAPE, 0);
    EXPECT_TRUE(WaitUntil([] { return OptionWindow() == nullptr; })) << "the key did not close the dialog";
  }

  void CloseHeaderWindow() override {
    PostMessageW(HeaderWindow(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([] { return IsWindowVisible(HeaderWindow()) == FALSE; }));
  }

  std::string DismissMessage() override {
    const auto box = [] { return FindDialogWindow(ProgramName().c_str()); };
    EXPECT_TRUE(WaitUntil([&] { return box() != nullptr; }));
    const std::string text = Utf8Of(WindowText(GetDlgItem(box(), 0xFFFF)));
    PostMessageW(box(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(WaitUntil([&] { return box() == nullptr; }));
    return text;
  }

  std::string Text(Control control) override { return WithoutMnemonic(WindowText(WindowOf(control))); }

  std::vector<std::string> Items(Control control) override {
    const HWND window = WindowOf(control);
    const bool isCombo = IsComboBox(window);
    const LRESULT count = SendMessageW(window, isCombo ? CB_GETCOUNT : LB_GETCOUNT, 0, 0);
    std::vector<std::string> items;
    for (WPARAM rank = 0; rank < static_cast<WPARAM>(count); ++rank) {
      wchar_t text[512]{};
      SendMessageW(window, isCombo ? CB_GETLBTEXT : LB_GETTEXT, rank, reinterpret_cast<LPARAM>(text));
      items.push_back(Utf8Of(text));
    }
    return items;
  }

  qv::Selection Selected(Control list) override {
    qv::Selection ranks;
    const LRESULT count = SendMessageW(WindowOf(list), LB_GETCOUNT, 0, 0);
    for (WPARAM rank = 0; rank < static_cast<WPARAM>(count); ++rank)
      if (SendMessageW(WindowOf(list), LB_GETSEL, rank, 0) > 0) ranks.push_back(rank);
    return ranks;
  }

  bool IsTicked(Control control) override {
    return SendMessageW(WindowOf(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
  }
  bool IsEnabled(Control control) override { return IsWindowEnabled(WindowOf(control)) != FALSE; }
  bool IsVisible(Control control) override { return IsWindowVisible(WindowOf(control)) != FALSE; }

  Frame DialogFrame() override { return FrameOf(OptionWindow()); }
  Frame HeaderWindowFrame() override { return FrameOf(HeaderWindow()); }
  bool IsOpen() override { return OptionWindow() != nullptr; }

 private:
  // What a list tells when a mouse or a key has changed it, but not when a message has.
  static void Notify(Control control, int notification) {
    const HWND window = WindowOf(control);
    SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), notification),
                 reinterpret_cast<LPARAM>(window));
  }
};

void UseDialog(const std::function<void(DialogDriver&)>& script) {
  WindowsDriver driver;
  if (!WaitUntil([] { return IsWindowVisible(OptionWindow()) != FALSE; })) {
    ADD_FAILURE() << "no dialog was shown";
    return;
  }
  script(driver);
  if (const HWND open = OptionWindow()) PostMessageW(open, WM_COMMAND, IDCANCEL, 0);
}

}  // namespace

bool RunDialog(const std::function<bool()>& show, const std::function<void(DialogDriver&)>& script,
               std::vector<std::string>& messages) {
  return WithMessagesIn(messages, [&] {
    std::thread person([&] { UseDialog(script); });
    const bool isOk = show();
    person.join();
    return isOk;
  });
}
