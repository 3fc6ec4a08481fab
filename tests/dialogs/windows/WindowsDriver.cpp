// Uses the dialog's windows by the messages that mouse and keyboard send to them.

#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/windows/DialogWindows.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <iterator>
#include <map>
#include <thread>
#include <type_traits>
#include <utility>

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

bool IsComboBox(HWND window) {
  wchar_t name[32]{};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return std::wstring(name) == L"ComboBox";
}

HWND EditOf(Control control) {
  const HWND window = WindowOf(control);
  const HWND edit = IsComboBox(window) ? GetWindow(window, GW_CHILD) : nullptr;
  return edit != nullptr ? edit : window;
}

constexpr UINT kMarker = WM_APP + 1;
std::atomic<int> markersSeen = 0;

LRESULT CALLBACK CountMarkers(int code, WPARAM isRemoved, LPARAM value) {
  const MSG& message = *reinterpret_cast<const MSG*>(value);
  if (code == HC_ACTION && isRemoved == PM_REMOVE && message.message == kMarker) {
    if (const auto* const action = reinterpret_cast<const std::function<void()>*>(message.lParam))
      (*action)();
    ++markersSeen;
  }
  return CallNextHookEx(nullptr, code, isRemoved, value);
}

/// Waits until the windows have handled every message that was posted to them, or those that such a message
/// has posted in turn, and wait for the next one: be it in the dialog's loop or in that of a message box.
class MessageQueue {
 public:
  MessageQueue() {
    const DWORD thread = GetWindowThreadProcessId(OptionWindow(), nullptr);
    hook_ = SetWindowsHookExW(WH_GETMESSAGE, CountMarkers, nullptr, thread);
  }
  ~MessageQueue() { UnhookWindowsHookEx(hook_); }
  MessageQueue(const MessageQueue&) = delete;
  MessageQueue& operator=(const MessageQueue&) = delete;

  static void Drain() {
    for (int round = 0; round < 2; ++round) Run(nullptr);
  }

  /// Runs what must not be interrupted by another message on the thread of the windows.
  static void Run(const std::function<void()>* action) {
    const int before = markersSeen;
    if (PostMessageW(OptionWindow(), kMarker, 0, reinterpret_cast<LPARAM>(action)) == FALSE) return;
    EXPECT_TRUE(WaitUntil([before] { return markersSeen > before || OptionWindow() == nullptr; }));
  }

 private:
  HHOOK hook_;
};

/// A key as the keyboard sends it to the window that has the focus, modifiers held.
class KeyStroke {
 public:
  explicit KeyStroke(std::string name) {
    static const std::pair<const char*, int> kModifiers[] = {
        {"Ctrl+", VK_CONTROL}, {"Alt+", VK_MENU}, {"Shift+", VK_SHIFT}};
    for (const auto& [prefix, key] : kModifiers) {
      if (!name.starts_with(prefix)) continue;
      held_.push_back(key);
      name.erase(0, std::strlen(prefix));
    }
    static const std::map<std::string, int> kKeys = {
        {"Enter", VK_RETURN},  {"Escape", VK_ESCAPE}, {"Space", VK_SPACE}, {"Up", VK_UP},
        {"Down", VK_DOWN},     {"Home", VK_HOME},     {"End", VK_END},     {"Tab", VK_TAB},
        {"Delete", VK_DELETE}, {"Insert", VK_INSERT}};
    const auto named = kKeys.find(name);
    key_ = named == kKeys.end() ? name.at(0) : named->second;
  }

  void SendTo(HWND window) const {
    Hold(0x80);
    const bool isAlt = std::find(held_.begin(), held_.end(), VK_MENU) != held_.end();
    PostMessageW(window, isAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, static_cast<WPARAM>(key_), isAlt ? 1 << 29 : 0);
    MessageQueue::Drain();
    PostMessageW(window, isAlt ? WM_SYSKEYUP : WM_KEYUP, static_cast<WPARAM>(key_), isAlt ? 1 << 29 : 0);
    MessageQueue::Drain();
    Hold(0);
  }

 private:
  // The state of the keyboard is each thread's own.
  void Hold(BYTE state) const {
    if (held_.empty()) return;
    const DWORD windows = GetWindowThreadProcessId(OptionWindow(), nullptr);
    AttachThreadInput(GetCurrentThreadId(), windows, TRUE);
    BYTE keys[256]{};
    for (const int key : held_) keys[key] = state;
    SetKeyboardState(keys);
    AttachThreadInput(GetCurrentThreadId(), windows, FALSE);
  }

  std::vector<int> held_;
  int key_;
};

HWND PreviewHeads() {
  return reinterpret_cast<HWND>(SendMessageW(WindowOf(Control::Preview), LVM_GETHEADER, 0, 0));
}

/// Asks a window, as a control does that is about to be drawn, how to draw a part of it.
template <class Draw>
class AskedToDraw {
 public:
  AskedToDraw(HWND asked, HWND control, DWORD stage, int part, int subItem) {
    NMCUSTOMDRAW& common = reinterpret_cast<NMCUSTOMDRAW&>(draw_);
    common.hdr = {control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), static_cast<UINT>(NM_CUSTOMDRAW)};
    common.dwDrawStage = stage;
    common.hdc = context_;
    SelectObject(context_, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    common.dwItemSpec = static_cast<DWORD_PTR>(part);
    if constexpr (std::is_same_v<Draw, NMLVCUSTOMDRAW>) draw_.iSubItem = subItem;
    SendMessageW(asked, WM_NOTIFY, common.hdr.idFrom, reinterpret_cast<LPARAM>(&draw_));
    GetObjectW(GetCurrentObject(context_, OBJ_FONT), sizeof font_, &font_);
  }
  ~AskedToDraw() { DeleteDC(context_); }
  AskedToDraw(const AskedToDraw&) = delete;
  AskedToDraw& operator=(const AskedToDraw&) = delete;

  const Draw& Answer() const { return draw_; }
  COLORREF TextColour() const { return GetTextColor(context_); }
  bool IsBold() const { return font_.lfWeight >= FW_BOLD; }
  bool IsStruck() const { return font_.lfStrikeOut != 0; }

 private:
  HDC context_ = CreateCompatibleDC(nullptr);
  Draw draw_{};
  LOGFONTW font_{};
};

SeenCell HeadOf(int column) {
  wchar_t text[256]{};
  HDITEMW item{};
  item.mask = HDI_TEXT;
  item.pszText = text;
  item.cchTextMax = 256;
  SendMessageW(PreviewHeads(), HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
  const AskedToDraw<NMCUSTOMDRAW> asked(WindowOf(Control::Preview), PreviewHeads(), CDDS_ITEMPREPAINT, column,
                                        0);
  return {Utf8Of(text), asked.TextColour() == GetSysColor(COLOR_GRAYTEXT), false, false, asked.IsBold()};
}

SeenCell CellOf(int row, int column) {
  const HWND list = WindowOf(Control::Preview);
  wchar_t text[256]{};
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = text;
  item.cchTextMax = 256;
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  const AskedToDraw<NMLVCUSTOMDRAW> asked(PreviewWindow(), list, CDDS_ITEMPREPAINT | CDDS_SUBITEM, row,
                                          column);
  return {Utf8Of(text), asked.Answer().clrText == GetSysColor(COLOR_GRAYTEXT), asked.IsStruck(),
          asked.IsBold(), asked.Answer().clrTextBk != GetSysColor(COLOR_WINDOW)};
}

/// The entry of a list above which a line is drawn; -1 for none.
int MarkedEntry(Control control) {
  const HWND list = WindowOf(control);
  const auto isMarked = [list](LONG line) {
    const HDC context = GetDC(list);
    const COLORREF colour = GetPixel(context, 60, line);
    ReleaseDC(list, context);
    return colour == GetSysColor(COLOR_HIGHLIGHT);
  };
  const LRESULT rows = SendMessageW(list, LB_GETCOUNT, 0, 0);
  for (LRESULT row = 0; row < rows; ++row) {
    RECT cell{};
    SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
    if (row == 0 && isMarked(cell.top) && !isMarked(cell.top + 3)) return 0;
    if (isMarked(cell.bottom) && !isMarked(cell.bottom + 3)) return static_cast<int>(row) + 1;
  }
  return -1;
}

/// What the tool tip of a control says.
std::string TipOf(HWND control) {
  for (HWND tip = FindWindowExW(nullptr, nullptr, TOOLTIPS_CLASSW, nullptr); tip != nullptr;
       tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) {
    DWORD process = 0;
    GetWindowThreadProcessId(tip, &process);
    if (process != GetCurrentProcessId()) continue;
    wchar_t text[1024]{};
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = GetAncestor(control, GA_ROOT);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text;
    SendMessageW(tip, TTM_GETTEXTW, 1024, reinterpret_cast<LPARAM>(&tool));
    if (text[0] != L'\0') return Utf8Of(text);
  }
  return {};
}

class WindowsDriver final : public DialogDriver {
 public:
  void Click(Control control) override {
    const HWND button = WindowOf(control);
    ASSERT_TRUE(IsWindowEnabled(button)) << "control " << static_cast<int>(control) << " is disabled";
    PostMessageW(button, BM_CLICK, 0, 0);
    MessageQueue::Drain();
  }

  void Choose(Control control, int index) override {
    SendMessageW(WindowOf(control), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    Notify(control, CBN_SELCHANGE);
  }

  void Type(Control control, const std::string& text) override {
    const HWND edit = EditOf(control);
    SendMessageW(GetParent(WindowOf(control)), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(edit), TRUE);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    if (text.empty()) PostMessageW(edit, WM_CHAR, VK_BACK, 0);
    for (const wchar_t c : WideOf(text)) PostMessageW(edit, WM_CHAR, c, 0);
    MessageQueue::Drain();
  }

  void Select(Control list, const qv::Selection& indexes) override {
    SendMessageW(WindowOf(list), LB_SETSEL, FALSE, -1);
    for (const std::size_t index : indexes)
      SendMessageW(WindowOf(list), LB_SETSEL, TRUE, static_cast<LPARAM>(index));
    Notify(list, LBN_SELCHANGE);
  }

  void DoubleClick(Control list, int index) override {
    const HWND window = WindowOf(list);
    SendMessageW(window, LB_SETTOPINDEX, static_cast<WPARAM>(std::max(0, index - 1)), 0);
    RECT row{};
    SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&row));
    const LPARAM place = MAKELPARAM(row.left + 5, (row.top + row.bottom) / 2);
    // While the button is down, a list follows the mouse. The real one is elsewhere, and tells of itself when
    // windows of other programs come and go.
    const std::function<void()> clicks = [window, place] {
      for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
        SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, place);
    };
    MessageQueue::Run(&clicks);
  }

  int Drag(Control from, const qv::Selection& entries, Control to, int place) override {
    Select(from, entries);
    const HWND list = WindowOf(from);
    const auto point = [list](Control at, int row) {
      const HWND target = WindowOf(at);
      const LRESULT rows = SendMessageW(target, LB_GETCOUNT, 0, 0);
      RECT cell{};
      SendMessageW(target, LB_GETITEMRECT, static_cast<WPARAM>(row < 0 ? rows - 1 : row),
                   reinterpret_cast<LPARAM>(&cell));
      POINT found{cell.left + 20, row < 0 ? cell.bottom + 5 : cell.top + 2};
      MapWindowPoints(target, list, &found, 1);
      return MAKELPARAM(found.x, found.y);
    };
    const LPARAM start = point(from, static_cast<int>(entries.front())), end = point(to, place);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, start);
    // A drawing that was still to come hides the mark until the mouse moves again.
    int marked = -1;
    for (int move = 0; move < 5 && marked < 0; ++move) {
      PostMessageW(list, WM_MOUSEMOVE, MK_LBUTTON, end);
      MessageQueue::Drain();
      marked = MarkedEntry(to);
    }
    PostMessageW(list, WM_LBUTTONUP, 0, end);
    MessageQueue::Drain();
    return marked;
  }

  void Press(Control focus, const std::string& key) override {
    const HWND window = WindowOf(focus);
    SendMessageW(GetParent(window), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
    KeyStroke(key).SendTo(EditOf(focus));
  }

  void TurnWheel(Control control) override {
    RECT place{};
    GetWindowRect(WindowOf(control), &place);
    PostMessageW(EditOf(control), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA),
                 MAKELPARAM(place.left, place.top));
    MessageQueue::Drain();
  }

  void CloseHeaderWindow() override {
    PostMessageW(HeaderWindow(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([] { return IsWindowVisible(HeaderWindow()) == FALSE; }));
  }

  void Rest() override {
    std::this_thread::sleep_for(std::chrono::milliseconds(qv::kPause + 50));
    MessageQueue::Drain();
  }

  std::string DeleteFormat(bool isSure) override {
    PostMessageW(EditOf(Control::FormatName), WM_KEYDOWN, VK_APPS, 0);
    EXPECT_TRUE(WaitUntil([] { return FindWindowW(L"#32768", nullptr) != nullptr; }));
    // The menu's last entry.
    for (const int key : {VK_UP, VK_RETURN})
      PostMessageW(OptionWindow(), WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    const auto box = [] { return FindDialogWindow(L"Delete Format"); };
    EXPECT_TRUE(WaitUntil([&] { return box() != nullptr; }));
    const std::string text = Utf8Of(WindowText(GetDlgItem(box(), 0xFFFF)));
    PostMessageW(box(), WM_COMMAND, isSure ? IDYES : IDNO, 0);
    EXPECT_TRUE(WaitUntil([&] { return box() == nullptr; }));
    MessageQueue::Drain();
    return text;
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
    for (WPARAM index = 0; index < static_cast<WPARAM>(count); ++index) {
      wchar_t text[512]{};
      SendMessageW(window, isCombo ? CB_GETLBTEXT : LB_GETTEXT, index, reinterpret_cast<LPARAM>(text));
      items.push_back(Utf8Of(text));
    }
    return items;
  }

  qv::Selection Selected(Control list) override {
    qv::Selection indexes;
    const LRESULT count = SendMessageW(WindowOf(list), LB_GETCOUNT, 0, 0);
    for (WPARAM index = 0; index < static_cast<WPARAM>(count); ++index)
      if (SendMessageW(WindowOf(list), LB_GETSEL, index, 0) > 0) indexes.push_back(index);
    return indexes;
  }

  qv::Selection Grey() override {
    qv::Selection grey;
    const HWND plan = WindowOf(Control::PlanItems);
    const LRESULT count = SendMessageW(plan, LB_GETCOUNT, 0, 0);
    for (WPARAM index = 0; index < static_cast<WPARAM>(count); ++index)
      if (SendMessageW(plan, LB_GETITEMDATA, index, 0) != 0) grey.push_back(index);
    return grey;
  }

  int Cursor(Control list) override {
    return static_cast<int>(SendMessageW(WindowOf(list), LB_GETCARETINDEX, 0, 0));
  }

  bool IsInSight(Control list, int index) override {
    RECT row{}, seen{};
    SendMessageW(WindowOf(list), LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&row));
    GetClientRect(WindowOf(list), &seen);
    return row.top >= 0 && row.bottom <= seen.bottom;
  }

  bool IsTicked(Control control) override {
    return SendMessageW(WindowOf(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
  }
  bool IsEnabled(Control control) override { return IsWindowEnabled(WindowOf(control)) != FALSE; }
  bool IsVisible(Control control) override { return IsWindowVisible(WindowOf(control)) != FALSE; }

  std::vector<SeenCell> PreviewRow(int row) override {
    std::vector<SeenCell> cells;
    const std::function<void()> look = [&cells, row] {
      const LRESULT count = SendMessageW(PreviewHeads(), HDM_GETITEMCOUNT, 0, 0);
      for (int column = 0; column < count; ++column)
        cells.push_back(row < 0 ? HeadOf(column) : CellOf(row, column));
    };
    MessageQueue::Run(&look);
    return cells;
  }

  std::string PreviewTip(int row, int column) override {
    const HWND list = WindowOf(Control::Preview);
    const HWND window = row < 0 ? PreviewHeads() : list;
    RECT cell{};
    cell.left = LVIR_BOUNDS;
    cell.top = column;
    if (row < 0)
      SendMessageW(window, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&cell));
    else
      SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
    PostMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(cell.left + 20, (cell.top + cell.bottom) / 2));
    MessageQueue::Drain();
    return TipOf(window);
  }

  Frame FrameOf(ControlWindow window) override {
    return ::FrameOf(FindDialogWindow(WideOf(TitleOf(window))));
  }
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
  if (!WaitUntil([] { return IsWindowVisible(OptionWindow()) != FALSE; })) {
    ADD_FAILURE() << "no dialog was shown";
    return;
  }
  const MessageQueue queue;
  WindowsDriver driver;
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
