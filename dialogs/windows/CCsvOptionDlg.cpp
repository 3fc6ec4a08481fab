#include "dialogs/windows/CCsvOptionDlg.h"

#include "dialogs/model/FormatOptionPresenter.h"
#include "dialogs/windows/Resources.h"
#include "manager/FormatOptionDialog.h"
#include "manager/SettingsFile.h"
#include "platform/Handlers.h"
#include "platform/windows/Com.h"
#include "platform/windows/WideText.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

using qv::OptionCommand;

namespace {

struct CommandRow {
  int control;
  int notification;
  OptionCommand command;
};

constexpr CommandRow kCommands[] = {
    {IDC_FORMAT_NAME, CBN_EDITCHANGE, OptionCommand::Edit},
    {IDC_START_LINE, EN_CHANGE, OptionCommand::Edit},
    {IDC_QUALIFIER, CBN_SELCHANGE, OptionCommand::Edit},
    {IDC_TAB, BN_CLICKED, OptionCommand::Edit},
    {IDC_SEMICOLON, BN_CLICKED, OptionCommand::Edit},
    {IDC_COMMA, BN_CLICKED, OptionCommand::Edit},
    {IDC_SPACE, BN_CLICKED, OptionCommand::Edit},
    {IDC_OTHER_TEXT, EN_CHANGE, OptionCommand::Edit},
    {IDC_NAME_ONLY, BN_CLICKED, OptionCommand::Edit},
    {IDC_NAME_WITH_PATH, BN_CLICKED, OptionCommand::Edit},
    {IDC_TREAT_AS_ONE, BN_CLICKED, OptionCommand::Edit},
    {IDC_DEFAULT, BN_CLICKED, OptionCommand::SetAsDefault},
    {IDC_OTHER, BN_CLICKED, OptionCommand::TickOther},
    {IDC_ADD, BN_CLICKED, OptionCommand::Add},
    {IDC_PLAN, LBN_DBLCLK, OptionCommand::Add},
    {IDC_DELETE, BN_CLICKED, OptionCommand::Delete},
    {IDC_SEQUENCE, LBN_DBLCLK, OptionCommand::Delete},
    {IDC_SEQUENCE, LBN_SELCHANGE, OptionCommand::SelectSequence},
    {IDC_SEQUENCE, LBN_SELCANCEL, OptionCommand::SelectSequence},
    {IDC_UP, BN_CLICKED, OptionCommand::MoveUp},
    {IDC_DOWN, BN_CLICKED, OptionCommand::MoveDown},
    {IDC_TOGGLE_HEADERS, BN_CLICKED, OptionCommand::ToggleHeaders},
    {IDC_TOGGLE_PREVIEW, BN_CLICKED, OptionCommand::TogglePreview},
    {IDOK, BN_CLICKED, OptionCommand::Ok},
    {IDCANCEL, BN_CLICKED, OptionCommand::Cancel},
};

struct KeyRow {
  int control;  // 0: everywhere
  int key;
  int modifier;
  OptionCommand command;
};

constexpr KeyRow kKeys[] = {
    {0, 'Z', VK_CONTROL, OptionCommand::Undo},
    {0, 'Y', VK_CONTROL, OptionCommand::Redo},
    {IDC_PLAN, VK_INSERT, 0, OptionCommand::Add},
    {IDC_PLAN, VK_RETURN, 0, OptionCommand::Add},
    {IDC_SEQUENCE, VK_DELETE, 0, OptionCommand::Delete},
    {IDC_SEQUENCE, VK_UP, VK_MENU, OptionCommand::MoveUp},
    {IDC_SEQUENCE, VK_DOWN, VK_MENU, OptionCommand::MoveDown},
};

// The one modifier that is held; -1 for several.
int HeldModifier() {
  int held = 0;
  for (const int modifier : {VK_CONTROL, VK_MENU, VK_SHIFT})
    if (GetKeyState(modifier) < 0) held = held == 0 ? modifier : -1;
  return held;
}

constexpr int kDelimiterBoxes[] = {IDC_TAB, IDC_SEMICOLON, IDC_COMMA, IDC_SPACE, IDC_OTHER};

constexpr const wchar_t* kQualifiers[] = {L"Double quotation marks", L"Single quotation marks", L"None"};

// Without the middle of what is wider.
std::wstring ShortenedTo(int width, const std::wstring& text, HDC context) {
  const auto fits = [&](const std::wstring& shown) {
    SIZE size{};
    GetTextExtentPoint32W(context, shown.c_str(), static_cast<int>(shown.size()), &size);
    return size.cx <= width;
  };
  std::wstring shown = text;
  for (std::size_t kept = text.size(); kept > 2 && !fits(shown); --kept)
    shown = text.substr(0, kept - kept / 2) + L"\u2026" + text.substr(text.size() - kept / 2);
  return shown;
}

bool IsOver(HWND list, POINT at) {
  RECT place{};
  GetWindowRect(list, &place);
  return PtInRect(&place, at) != FALSE;
}

// One dialog at a time runs on a thread.
thread_local CCsvOptionDlg* running = nullptr;

// The modal loop of the dialog and of each message box above it shows this function its messages first, and
// so does what handles a message in here.
LRESULT CALLBACK FilterMessage(int code, WPARAM wide, LPARAM parameter) {
  thread_local bool isAtWork = false;
  if (code != MSGF_DIALOGBOX || running == nullptr || isAtWork)
    return CallNextHookEx(nullptr, code, wide, parameter);
  isAtWork = true;
  const bool isTaken = running->TakeMessage(*reinterpret_cast<MSG*>(parameter));
  isAtWork = false;
  return isTaken ? TRUE : CallNextHookEx(nullptr, code, wide, parameter);
}

}  // namespace

CCsvOptionDlg::CCsvOptionDlg(qv::FormatOptionCommands& commands, HWND parent)
    : commands_(commands),
      parent_(IsWindow(parent) != FALSE ? parent : nullptr),
      headers_(commands),
      preview_(commands) {}

INT_PTR CCsvOptionDlg::DoModal() {
  running = this;
  const HHOOK filter = SetWindowsHookExW(WH_MSGFILTER, FilterMessage, nullptr, GetCurrentThreadId());
  const INT_PTR result = RunModal(IDD_OPTION, parent_);
  if (filter != nullptr) UnhookWindowsHookEx(filter);
  running = nullptr;
  return result;
}

bool CCsvOptionDlg::TakeMessage(MSG& message) {
  if (message.message == WM_KEYDOWN || message.message == WM_CHAR)
    isTyping_ = message.hwnd == NameEdit() && message.wParam >= VK_SPACE && message.wParam != VK_DELETE;
  if (headers_.TakeMessage(message) || preview_.TakeMessage(message)) return true;
  if (Drag(message)) return true;
  if (message.hwnd == NameEdit() && ShowNameMenu(message)) return true;
  if (message.message == WM_MOUSEWHEEL) return IsClosedComboBox(message.hwnd);
  const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  return isKey && IsChild(Window(), message.hwnd) != FALSE && RunOnKey(message);
}

bool CCsvOptionDlg::RunOnKey(const MSG& message) const {
  const int modifier = HeldModifier();
  if (message.wParam == VK_RETURN && modifier == 0 && message.hwnd == NameEdit() && ChooseCompleted())
    return true;
  for (const KeyRow& row : kKeys) {
    if (static_cast<WPARAM>(row.key) != message.wParam || row.modifier != modifier) continue;
    if (row.control != 0 && Control(row.control) != message.hwnd) continue;
    // Enter is OK where there is nothing to add.
    if (row.key == VK_RETURN && PlanSelection().empty()) continue;
    commands_.Run(row.command);
    return true;
  }
  return false;
}

// The rest of the name is selected, so that whatever is typed next takes its place. A key that deletes is not
// answered so, or it could delete nothing.
void CCsvOptionDlg::CompleteName() const {
  const std::wstring typed = TextOf(IDC_FORMAT_NAME);
  DWORD begin = 0, end = 0;
  SendMessageW(NameEdit(), EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
  if (!isTyping_ || end != typed.size()) return;
  const std::wstring rest = qv::Widen(qv::CompletionOf(qv::Narrow(typed), formatNames_));
  if (rest.empty()) return;
  SendMessageW(NameEdit(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(rest.c_str()));
  SendMessageW(NameEdit(), EM_SETSEL, static_cast<WPARAM>(typed.size() + rest.size()),
               static_cast<LPARAM>(typed.size()));
}

bool CCsvOptionDlg::ChooseCompleted() const {
  const std::wstring name = TextOf(IDC_FORMAT_NAME);
  int begin = 0, end = 0;
  SendMessageW(NameEdit(), EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
  const auto index = qv::CompletedName(formatNames_, qv::Narrow(name), begin,
                                       end == static_cast<int>(name.size()) ? end : 0);
  if (index) commands_.ChooseFormat(*index);
  return index.has_value();
}

// The mouse that goes down on a selected entry drags what is selected; on another it selects, as ever. A
// click on a selected entry is handed to the list when it is over.
bool CCsvOptionDlg::Drag(const MSG& message) {
  POINT at{static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
  if (message.message == WM_LBUTTONDOWN && message.wParam == MK_LBUTTON) {
    if (message.hwnd != Control(IDC_PLAN) && message.hwnd != Control(IDC_SEQUENCE)) return false;
    const LRESULT entry = SendMessageW(message.hwnd, LB_ITEMFROMPOINT, 0, message.lParam);
    if (HIWORD(entry) != 0 || SendMessageW(message.hwnd, LB_GETSEL, LOWORD(entry), 0) <= 0) return false;
    dragged_ = message.hwnd;
    ClientToScreen(dragged_, &at);
    dragStart_ = at;
    isMoved_ = false;
    SetFocus(dragged_);
    SetCapture(dragged_);
    return true;
  }
  if (dragged_ == nullptr || message.hwnd != dragged_) return false;
  ClientToScreen(dragged_, &at);
  if (message.message == WM_MOUSEMOVE) {
    isMoved_ = isMoved_ || std::abs(at.x - dragStart_.x) > GetSystemMetrics(SM_CXDRAG) ||
               std::abs(at.y - dragStart_.y) > GetSystemMetrics(SM_CYDRAG);
    if (isMoved_) SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEALL)));
    if (isMoved_) MarkPlace(DropPlace(at));
    return true;
  }
  if (message.message != WM_LBUTTONUP) return false;
  const HWND list = std::exchange(dragged_, nullptr);
  ReleaseCapture();
  MarkPlace(std::nullopt);
  if (isMoved_) {
    Drop(list, at);
    return true;
  }
  for (const UINT part : {WM_LBUTTONDOWN, WM_LBUTTONUP})
    SendMessageW(list, part, part == WM_LBUTTONDOWN ? MK_LBUTTON : 0, message.lParam);
  return true;
}

// Before the entry in whose upper half it is, or after it.
std::optional<std::size_t> CCsvOptionDlg::DropPlace(POINT at) const {
  const HWND sequence = Control(IDC_SEQUENCE);
  if (!IsOver(sequence, at)) return std::nullopt;
  if (SendMessageW(sequence, LB_GETCOUNT, 0, 0) == 0) return 0;
  ScreenToClient(sequence, &at);
  const LRESULT found = SendMessageW(sequence, LB_ITEMFROMPOINT, 0, MAKELPARAM(at.x, at.y));
  RECT entry{};
  SendMessageW(sequence, LB_GETITEMRECT, LOWORD(found), reinterpret_cast<LPARAM>(&entry));
  return LOWORD(found) + (at.y > (entry.top + entry.bottom) / 2 ? 1U : 0U);
}

// By a line above the list's own drawing, which may come in between.
void CCsvOptionDlg::MarkPlace(std::optional<std::size_t> place) {
  const HWND sequence = Control(IDC_SEQUENCE);
  if (std::exchange(marked_, place) != place)
    RedrawWindow(sequence, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
  if (!place) return;
  RECT line{}, entry{};
  GetClientRect(sequence, &line);
  const std::size_t last = *place == 0 ? 0 : *place - 1;
  SendMessageW(sequence, LB_GETITEMRECT, last, reinterpret_cast<LPARAM>(&entry));
  line.top = *place == 0 ? 0 : entry.bottom - 1;
  line.bottom = line.top + 2;
  const HDC context = GetDC(sequence);
  FillRect(context, &line, GetSysColorBrush(COLOR_HIGHLIGHT));
  ReleaseDC(sequence, context);
}

void CCsvOptionDlg::Drop(HWND from, POINT at) {
  const bool isFromPlan = from == Control(IDC_PLAN);
  if (!isFromPlan && IsOver(Control(IDC_PLAN), at)) return commands_.Run(OptionCommand::Delete);
  if (const auto place = DropPlace(at)) commands_.DropOnSequence(isFromPlan, *place);
}

// What the edit's own menu has most of, and an entry that deletes the format.
bool CCsvOptionDlg::ShowNameMenu(const MSG& message) const {
  const bool isKey = message.message == WM_KEYDOWN && message.wParam == VK_APPS;
  if (message.message != WM_RBUTTONUP && !isKey) return false;
  static constexpr std::pair<UINT, const wchar_t*> kEntries[] = {
      {WM_CUT, L"Cu&t"}, {WM_COPY, L"&Copy"}, {WM_PASTE, L"&Paste"}, {WM_APP, L"Delete &Format..."}};
  const HMENU menu = CreatePopupMenu();
  for (const auto& [id, text] : kEntries) {
    if (id == WM_APP) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, id, text);
  }
  POINT at{0, 0};
  if (isKey)
    ClientToScreen(NameEdit(), &at);
  else
    GetCursorPos(&at);
  const auto chosen = static_cast<UINT>(
      TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, Window(), nullptr));
  DestroyMenu(menu);
  if (chosen == WM_APP)
    commands_.Run(OptionCommand::DeleteFormat);
  else if (chosen != 0)
    SendMessageW(NameEdit(), chosen, 0, 0);
  return true;
}

// A wheel that is turned over a combo box whose list is not open is an accident, or is to scroll something
// else.
bool CCsvOptionDlg::IsClosedComboBox(HWND window) const {
  for (const int id : {IDC_FORMAT_NAME, IDC_QUALIFIER}) {
    const HWND comboBox = Control(id);
    if (window == comboBox || IsChild(comboBox, window) != FALSE)
      return SendMessageW(comboBox, CB_GETDROPPEDSTATE, 0, 0) == FALSE;
  }
  return false;
}

void CCsvOptionDlg::Opened() {
  headers_.CreateHidden(Window());
  preview_.CreateHidden(Window());
  SendDlgItemMessageW(Window(), IDC_START_LINE_SPIN, UDM_SETRANGE32, qv::kFirstStartLine, qv::kLastStartLine);
  for (const wchar_t* const item : kQualifiers)
    SendDlgItemMessageW(Window(), IDC_QUALIFIER, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
  AddToolTip(Control(IDC_TREAT_AS_ONE), qv::Widen(qv::kTreatAsOneTip).c_str());
  SetIcon(IDC_UP, IDI_UP, L"Up");
  SetIcon(IDC_DOWN, IDI_DOWN, L"Down");
  ::ShowWindow(Control(IDC_TOGGLE_HEADERS), commands_.OffersHeaders() ? SW_SHOW : SW_HIDE);
  ::ShowWindow(Control(IDC_TOGGLE_PREVIEW), commands_.OffersPreview() ? SW_SHOW : SW_HIDE);
  commands_.Open(*this);
}

void CCsvOptionDlg::Commanded(int control, int notification) {
  if (control == IDC_FORMAT_NAME && notification == CBN_SELCHANGE) {
    const LRESULT index = SendDlgItemMessageW(Window(), IDC_FORMAT_NAME, CB_GETCURSEL, 0, 0);
    if (index != CB_ERR) commands_.ChooseFormat(static_cast<std::size_t>(index));
    return;
  }
  if (control == IDC_FORMAT_NAME && notification == CBN_EDITCHANGE) CompleteName();
  for (const CommandRow& row : kCommands)
    if (row.control == control && row.notification == notification) return commands_.Run(row.command);
}

bool CCsvOptionDlg::TakeText(int control, const ShownText& shown, std::string& text,
                             std::string& complaint) const {
  const std::wstring wide = TextOf(control);
  if (shown.IsShown(wide)) {
    text = shown.Text();
    return true;
  }
  if (const auto narrow = qv::NarrowWhole(wide)) {
    text = *narrow;
    return true;
  }
  complaint = qv::Narrow(wide) + ": this system's code page does not have all of these characters.";
  return false;
}

// Every value that can be taken is, whatever is wrong with another.
bool CCsvOptionDlg::TakeControls(qv::OptionControls& controls, std::string& complaint) {
  const auto isTicked = [this](int box) { return IsDlgButtonChecked(Window(), box) == BST_CHECKED; };
  bool isWhole = TakeText(IDC_FORMAT_NAME, shownName_, controls.FormatName, complaint);
  controls.SetAsDefault = isTicked(IDC_DEFAULT);
  isWhole = qv::TakeStartLine(qv::Narrow(TextOf(IDC_START_LINE)), controls.StartLine, complaint) && isWhole;
  const LRESULT qualifier = SendDlgItemMessageW(Window(), IDC_QUALIFIER, CB_GETCURSEL, 0, 0);
  if (qualifier != CB_ERR) controls.Qualifier = static_cast<int>(qualifier);
  for (std::size_t box = 0; box < controls.Delimiters.size(); ++box)
    controls.Delimiters[box] = isTicked(kDelimiterBoxes[box]);
  isWhole = TakeText(IDC_OTHER_TEXT, shownOther_, controls.OtherDelimiters, complaint) && isWhole;
  controls.PartName =
      isTicked(IDC_NAME_ONLY) ? qv::PartNameMode::NameOnly : qv::PartNameMode::NameWithFullPath;
  controls.TreatAsOne = isTicked(IDC_TREAT_AS_ONE);
  return isWhole;
}

void CCsvOptionDlg::ShowControls(const qv::OptionControls& controls) {
  const auto tick = [this](int box, bool isTicked) {
    CheckDlgButton(Window(), box, isTicked ? BST_CHECKED : BST_UNCHECKED);
  };
  const auto listed = std::find(formatNames_.begin(), formatNames_.end(), controls.FormatName);
  const LRESULT chosen = listed == formatNames_.end() ? -1 : listed - formatNames_.begin();
  SendDlgItemMessageW(Window(), IDC_FORMAT_NAME, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
  const std::wstring& name = shownName_.Show(controls.FormatName, qv::Widen(controls.FormatName));
  SetDlgItemTextW(Window(), IDC_FORMAT_NAME, name.c_str());
  tick(IDC_DEFAULT, controls.SetAsDefault);
  SetDlgItemInt(Window(), IDC_START_LINE, static_cast<UINT>(controls.StartLine), TRUE);
  const bool isListed = controls.Qualifier >= 0 && controls.Qualifier < qv::kQualifierCount;
  SendDlgItemMessageW(Window(), IDC_QUALIFIER, CB_SETCURSEL,
                      static_cast<WPARAM>(isListed ? controls.Qualifier : -1), 0);
  for (std::size_t box = 0; box < controls.Delimiters.size(); ++box)
    tick(kDelimiterBoxes[box], controls.Delimiters[box]);
  const std::wstring& other = shownOther_.Show(controls.OtherDelimiters, qv::Widen(controls.OtherDelimiters));
  SetDlgItemTextW(Window(), IDC_OTHER_TEXT, other.c_str());
  CheckRadioButton(Window(), IDC_NAME_ONLY, IDC_NAME_WITH_PATH,
                   controls.PartName == qv::PartNameMode::NameOnly ? IDC_NAME_ONLY : IDC_NAME_WITH_PATH);
  tick(IDC_TREAT_AS_ONE, controls.TreatAsOne);
}

void CCsvOptionDlg::ShowFormatNames(const std::vector<std::string>& names) {
  const std::size_t kept = qv::KeptEntries(formatNames_, names);
  if (kept == 0) SendDlgItemMessageW(Window(), IDC_FORMAT_NAME, CB_RESETCONTENT, 0, 0);
  for (std::size_t index = kept; index < names.size(); ++index) {
    const std::wstring wide = qv::Widen(names[index]);
    SendDlgItemMessageW(Window(), IDC_FORMAT_NAME, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str()));
  }
  formatNames_ = names;
}

void CCsvOptionDlg::ShowPlanItems(const std::vector<std::string>& items) { FillList(IDC_PLAN, items); }

void CCsvOptionDlg::ShowUsedPlanItems(const std::vector<bool>& areUsed) {
  for (std::size_t index = 0; index < areUsed.size(); ++index)
    SendDlgItemMessageW(Window(), IDC_PLAN, LB_SETITEMDATA, index, areUsed[index] ? 1 : 0);
  InvalidateRect(Control(IDC_PLAN), nullptr, FALSE);
}

// Of the lists that may be grey, and of the names, which may be longer than their list is wide.
void CCsvOptionDlg::DrawItem(const DRAWITEMSTRUCT& item) const {
  const bool isName = item.CtlType == ODT_COMBOBOX;
  const LRESULT length =
      SendMessageW(item.hwndItem, isName ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, item.itemID, 0);
  std::wstring text(length == LB_ERR ? 0 : static_cast<std::size_t>(length),
                    L'\0');  // an empty list has none
  if (!text.empty())
    SendMessageW(item.hwndItem, isName ? CB_GETLBTEXT : LB_GETTEXT, item.itemID,
                 reinterpret_cast<LPARAM>(text.data()));
  if (isName) text = ShortenedTo(item.rcItem.right - item.rcItem.left - 4, text, item.hDC);
  const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
  SetBkColor(item.hDC, GetSysColor(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const int colour = isSelected           ? COLOR_HIGHLIGHTTEXT
                     : item.itemData != 0 ? COLOR_GRAYTEXT
                                          : COLOR_WINDOWTEXT;
  SetTextColor(item.hDC, GetSysColor(colour));
  ExtTextOutW(item.hDC, item.rcItem.left + 2, item.rcItem.top, ETO_OPAQUE | ETO_CLIPPED, &item.rcItem,
              text.c_str(), static_cast<UINT>(text.size()), nullptr);
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

void CCsvOptionDlg::ShowSequence(const std::vector<std::string>& items, const qv::Selection& selection,
                                 std::optional<std::size_t> cursor) {
  const LRESULT top = SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_GETTOPINDEX, 0, 0);
  FillList(IDC_SEQUENCE, items);
  SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
  for (const std::size_t index : selection)
    SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_SETSEL, TRUE, static_cast<LPARAM>(index));
  if (!cursor) return;
  SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_SETANCHORINDEX, *cursor, 0);
  SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_SETCARETINDEX, *cursor, FALSE);
}

qv::Selection CCsvOptionDlg::PlanSelection() const { return SelectionOf(IDC_PLAN); }
qv::Selection CCsvOptionDlg::SequenceSelection() const { return SelectionOf(IDC_SEQUENCE); }

// A disabled control that keeps the focus would leave the keyboard without effect.
void CCsvOptionDlg::EnableControl(int control, bool isEnabled) const {
  if (!isEnabled && GetFocus() == Control(control)) SendMessageW(Window(), WM_NEXTDLGCTL, 0, FALSE);
  EnableWindow(Control(control), isEnabled ? TRUE : FALSE);
}

void CCsvOptionDlg::Enable(const qv::OptionEnabling& enabling) {
  EnableControl(IDC_OTHER_TEXT, enabling.OtherDelimiters);
  EnableControl(IDC_SEQUENCE, enabling.Sequence);
  EnableControl(IDC_DELETE, enabling.Delete);
  EnableControl(IDC_UP, enabling.Up);
  EnableControl(IDC_DOWN, enabling.Down);
}

HWND CCsvOptionDlg::WindowOf(qv::DialogPart part) const {
  return part == qv::DialogPart::Dialog    ? Window()
         : part == qv::DialogPart::Headers ? headers_.Window()
                                           : preview_.Window();
}

void CCsvOptionDlg::ShowWindow(qv::DialogPart part, bool isShown) {
  const int button = part == qv::DialogPart::Headers ? IDC_TOGGLE_HEADERS : IDC_TOGGLE_PREVIEW;
  SetDlgItemTextW(Window(), button, qv::Widen(qv::ToggleLabel(part, isShown, '&')).c_str());
  ::ShowWindow(WindowOf(part), isShown ? SW_SHOW : SW_HIDE);
}

qv::WindowFrame CCsvOptionDlg::FrameOf(qv::DialogPart part) const {
  RECT frame{};
  GetWindowRect(WindowOf(part), &frame);
  return {frame.left, frame.top, frame.right, frame.bottom};
}

void CCsvOptionDlg::Place(qv::DialogPart part, const qv::WindowFrame& frame) {
  SetWindowPos(WindowOf(part), nullptr, frame.left, frame.top, frame.Width(), frame.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

qv::WindowFrame CCsvOptionDlg::Screen() const {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(Window(), MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& area = monitor.rcWork;
  return {area.left, area.top, area.right, area.bottom};
}

void CCsvOptionDlg::ShowNameHint(const std::string& hint) {
  SetDlgItemTextW(Window(), IDC_NAME_HINT, qv::Widen(hint).c_str());
}

bool CCsvOptionDlg::Ask(const std::string& question) {
  return MessageBoxW(Window(), qv::Widen(question).c_str(), L"Delete Format", MB_YESNO | MB_ICONQUESTION) ==
         IDYES;
}

void CCsvOptionDlg::Tell(const std::string& sentence) { qv::ShowMessage(sentence.c_str()); }

void CCsvOptionDlg::Close(bool isOk) { EndDialog(Window(), isOk ? IDOK : IDCANCEL); }

std::string WhyNoFormatOptionDialog() { return {}; }

bool ShowFormatOptionDialog(const FormatOptionRequest& request) {
  const qv::ComScope com;  // for writing the format file
  qv::FormatOptionPresenter presenter(request, SettingsFilePath());
  CCsvOptionDlg dialog(presenter, request.parent);
  const INT_PTR result = dialog.DoModal();
  presenter.RethrowFailure();
  if (result != IDOK && result != IDCANCEL) {
    const std::string reason = qv::SystemReason(GetLastError());
    qv::ShowMessage(("The format option dialog cannot be shown (" + reason + ").").c_str());
  }
  return result == IDOK;
}
