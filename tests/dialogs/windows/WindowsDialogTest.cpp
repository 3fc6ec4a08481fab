// What only the Windows view has to get right.

#include "tests/dialogs/DrawnDialogTest.h"
#include "tests/dialogs/windows/DialogWindows.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace {

using WindowsDialogTest = DrawnDialogTest;

TEST_F(WindowsDialogTest, TheArrowsStayWithinTheirRange) {
  Run([](DialogDriver& dialog) {
    const HWND arrows = GetDlgItem(OptionWindow(), IDC_START_LINE_SPIN);
    int low = 0, high = 0;
    SendMessageW(arrows, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low), reinterpret_cast<LPARAM>(&high));
    EXPECT_EQ(low, 1);
    EXPECT_EQ(high, 100);
    dialog.Type(Control::StartLine, "100");
    SendMessageW(WindowOf(Control::StartLine), WM_KEYDOWN, VK_UP, 0);
    EXPECT_EQ(dialog.Text(Control::StartLine), "100");
    SendMessageW(WindowOf(Control::StartLine), WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(dialog.Text(Control::StartLine), "99");
  });
}

// A mnemonic that two controls claim, or a control that Tab does not reach, is a keyboard user's dead end.
TEST_F(WindowsDialogTest, EveryControlIsReachedByTheKeyboard) {
  Run([](DialogDriver&) {
    std::map<wchar_t, std::wstring> mnemonics;
    for (HWND child = GetWindow(OptionWindow(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      const std::wstring text = WindowText(child);
      const std::size_t mark = text.find(L'&');
      if (mark == std::wstring::npos || GetDlgCtrlID(child) == IDC_FORMAT_NAME) continue;
      const auto letter = static_cast<wchar_t>(towupper(text[mark + 1]));
      EXPECT_TRUE(mnemonics.emplace(letter, text).second)
          << Utf8Of(text) << " and " << Utf8Of(mnemonics[letter]);
    }
    EXPECT_EQ(mnemonics.size(), 19U);

    // The combo box's own edit has no place in the order; radio buttons share one.
    EnableWindow(WindowOf(Control::OtherDelimiters), TRUE);
    for (const Control control : {Control::Delete, Control::Up, Control::Down})
      EnableWindow(WindowOf(control), TRUE);
    std::vector<int> order;
    const HWND first = WindowOf(Control::FormatName);
    HWND stop = first;
    do {
      order.push_back(GetDlgCtrlID(stop));
      stop = GetNextDlgTabItem(OptionWindow(), stop, FALSE);
    } while (stop != first && order.size() < 40);
    EXPECT_EQ(order, (std::vector<int>{IDC_FORMAT_NAME,
                                       IDC_DEFAULT,
                                       IDC_START_LINE,
                                       IDC_QUALIFIER,
                                       IDC_TAB,
                                       IDC_SEMICOLON,
                                       IDC_COMMA,
                                       IDC_SPACE,
                                       IDC_OTHER,
                                       IDC_OTHER_TEXT,
                                       IDC_NAME_ONLY,
                                       IDC_TREAT_AS_ONE,
                                       IDC_PLAN,
                                       IDC_ADD,
                                       IDC_DELETE,
                                       IDC_SEQUENCE,
                                       IDC_UP,
                                       IDC_DOWN,
                                       IDC_TOGGLE_HEADERS,
                                       IDC_TOGGLE_PREVIEW,
                                       IDOK,
                                       IDCANCEL}));
    EXPECT_EQ(LOWORD(SendMessageW(OptionWindow(), DM_GETDEFID, 0, 0)), IDOK);
  });
}

// A control without a text of its own has the label before it for its name.
TEST_F(WindowsDialogTest, AScreenReaderHasANameForEveryControl) {
  Run([](DialogDriver&) {
    for (const HWND window : {OptionWindow(), HeaderWindow(), PreviewWindow()})
      for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
           child = GetWindow(child, GW_HWNDNEXT)) {
        const HWND before = GetWindow(child, GW_HWNDPREV);
        const bool isStop = (GetWindowLongPtrW(child, GWL_STYLE) & WS_TABSTOP) != 0;
        const bool isButton = (SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
        if (!isStop) continue;
        const HWND label = isButton ? child : before;
        const bool isNamed = label != nullptr && !WindowText(label).empty() &&
                             (isButton || (SendMessageW(label, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0);
        EXPECT_TRUE(isNamed) << Utf8Of(CaptionOf(window)) << ": control " << GetDlgCtrlID(child);
      }
  });
}

// Neither in the fonts that a system may have, nor where a sentence is long.
TEST_F(WindowsDialogTest, NoTextIsCut) {
  Run([](DialogDriver& dialog) {
    dialog.Click(Control::ShowHeader);
    dialog.Click(Control::ShowPreview);
    dialog.Rest();
    for (const HWND window : {OptionWindow(), HeaderWindow(), PreviewWindow()})
      for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
           child = GetWindow(child, GW_HWNDNEXT)) {
        const LRESULT code = SendMessageW(child, WM_GETDLGCODE, 0, 0);
        const LONG_PTR style = GetWindowLongPtrW(child, GWL_STYLE);
        const bool isLabel = (code & DLGC_STATIC) != 0, isButton = (code & DLGC_BUTTON) != 0;
        RECT place{}, needed{};
        GetClientRect(child, &place);
        if (!(isLabel || isButton) || place.bottom == 0 || (style & WS_VISIBLE) == 0) continue;
        if (isButton && (style & BS_ICON) != 0) continue;
        const std::wstring text = WindowText(child);
        const HDC context = GetDC(child);
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
        needed.right = place.right;
        DrawTextW(context, text.c_str(), -1, &needed, DT_CALCRECT | (isLabel ? DT_WORDBREAK : 0));
        ReleaseDC(child, context);
        const bool hasBox = isButton && (style & BS_TYPEMASK) > BS_DEFPUSHBUTTON;
        EXPECT_LE(needed.right + (hasBox ? GetSystemMetrics(SM_CXMENUCHECK) : 0), place.right)
            << Utf8Of(text);
        EXPECT_LE(needed.bottom, place.bottom) << Utf8Of(text);
      }
  });
}

TEST_F(WindowsDialogTest, RunsFromRightToLeftInSuchAProcess) {
  SetProcessDefaultLayout(LAYOUT_RTL);
  Run([](DialogDriver& dialog) {
    dialog.Click(Control::ShowHeader);
    dialog.Click(Control::ShowPreview);
    EXPECT_GT(FrameOf(WindowOf(Control::PlanItems)).left, FrameOf(WindowOf(Control::Sequence)).left);
    EXPECT_EQ(dialog.FrameOf(ControlWindow::Headers).left, dialog.FrameOf(ControlWindow::Option).right);
    EXPECT_EQ(dialog.Drag(Control::Sequence, {1, 2}, Control::Sequence, 0), 0);
    EXPECT_EQ(dialog.Items(Control::Sequence).front(), "Customer");
  });
  SetProcessDefaultLayout(0);
}

TEST_F(WindowsDialogTest, TheHeaderWindowHasItsOwnKeys) {
  Run([](DialogDriver& dialog) {
    dialog.Click(Control::ShowHeader);
    ASSERT_TRUE(dialog.IsVisible(Control::Headers));
    PostMessageW(WindowOf(Control::Headers), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_TRUE(WaitUntil([&dialog] { return !dialog.IsVisible(Control::Headers); }));
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Text(Control::ShowHeader), "Show Header");
  });
}

TEST_F(WindowsDialogTest, IconButtonsBearTheirIcons) {
  Run([](DialogDriver&) {
    for (const Control control : {Control::Up, Control::Down, Control::Refresh})
      EXPECT_NE(SendMessageW(WindowOf(control), BM_GETIMAGE, IMAGE_ICON, 0), 0);
  });
}

TEST_F(WindowsDialogTest, TheParentIsDisabledMeanwhileAndAStaleOneDoesNoHarm) {
  const HWND parent = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                                      nullptr, nullptr, nullptr, nullptr);
  EXPECT_FALSE(Run(
      [parent](DialogDriver&) {
        EXPECT_FALSE(IsWindowEnabled(parent));
        EXPECT_EQ(GetWindow(OptionWindow(), GW_OWNER), parent);
      },
      parent));
  EXPECT_TRUE(IsWindowEnabled(parent));
  DestroyWindow(parent);
  EXPECT_TRUE(Run([](DialogDriver& dialog) { dialog.Click(Control::Ok); }, parent));
}

}  // namespace
