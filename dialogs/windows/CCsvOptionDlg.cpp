#include "dialogs/windows/CCsvOptionDlg.h"

#include "dialogs/windows/Resources.h"
#include "platform/MessageBox.h"
#include "platform/windows/WideText.h"

#include <commctrl.h>

#include <algorithm>
#include <cerrno>
#include <cwchar>

using qv::OptionCommand;

namespace {

struct CommandRow {
  int control;
  int notification;
  OptionCommand command;
};

constexpr CommandRow kCommands[] = {
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
    {IDOK, BN_CLICKED, OptionCommand::Ok},
    {IDCANCEL, BN_CLICKED, OptionCommand::Cancel},
};

constexpr int kDelimiterBoxes[] = {IDC_TAB, IDC_SEMICOLON, IDC_COMMA, IDC_SPACE, IDC_OTHER};

constexpr const wchar_t* kQualifiers[] = {L"Double quotation marks", L"Single quotation marks", L"None"};

}  // namespace

CCsvOptionDlg::CCsvOptionDlg(qv::FormatOptionCommands& commands, HWND parent)
    : commands_(commands), parent_(IsWindow(parent) != FALSE ? parent : nullptr), headers_(commands) {}

INT_PTR CCsvOptionDlg::DoModal() { return RunModal(IDD_OPTION, parent_); }

void CCsvOptionDlg::Opened() {
  headers_.CreateHidden(Window());
  SendDlgItemMessageW(Window(), IDC_START_LINE_SPIN, UDM_SETRANGE32, qv::kFirstStartLine, qv::kLastStartLine);
  for (const wchar_t* const item : kQualifiers)
    SendDlgItemMessageW(Window(), IDC_QUALIFIER, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
  SetIcon(IDC_UP, IDI_UP, L"Up");
  SetIcon(IDC_DOWN, IDI_DOWN, L"Down");
  ShowWindow(Control(IDC_TOGGLE_HEADERS), commands_.OffersHeaders() ? SW_SHOW : SW_HIDE);
  commands_.Open(*this);
}

void CCsvOptionDlg::Commanded(int control, int notification) {
  if (control == IDC_FORMAT_NAME && notification == CBN_SELCHANGE) {
    const LRESULT rank = SendDlgItemMessageW(Window(), IDC_FORMAT_NAME, CB_GETCURSEL, 0, 0);
    if (rank != CB_ERR) commands_.ChooseFormat(static_cast<std::size_t>(rank));
    return;
  }
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

bool CCsvOptionDlg::TakeStartLine(int& line, std::string& complaint) const {
  const std::wstring text = TextOf(IDC_START_LINE);
  wchar_t* end = nullptr;
  errno = 0;
  const long number = std::wcstol(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != L'\0' || errno == ERANGE) {
    complaint = "Please enter a whole number as the starting line.";
    return false;
  }
  line = number;
  return true;
}

// Every value that can be taken is, whatever is wrong with another.
bool CCsvOptionDlg::TakeControls(qv::OptionControls& controls, std::string& complaint) {
  const auto isTicked = [this](int box) { return IsDlgButtonChecked(Window(), box) == BST_CHECKED; };
  bool isWhole = TakeText(IDC_FORMAT_NAME, shownName_, controls.FormatName, complaint);
  controls.SetAsDefault = isTicked(IDC_DEFAULT);
  isWhole = TakeStartLine(controls.StartLine, complaint) && isWhole;
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
  const auto rank = std::find(formatNames_.begin(), formatNames_.end(), controls.FormatName);
  const LRESULT chosen = rank == formatNames_.end() ? -1 : rank - formatNames_.begin();
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
  formatNames_ = names;
  SendDlgItemMessageW(Window(), IDC_FORMAT_NAME, CB_RESETCONTENT, 0, 0);
  for (const std::string& name : names) {
    const std::wstring wide = qv::Widen(name);
    SendDlgItemMessageW(Window(), IDC_FORMAT_NAME, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str()));
  }
}

void CCsvOptionDlg::ShowPlanItems(const std::vector<std::string>& items) { FillList(IDC_PLAN, items); }

void CCsvOptionDlg::ShowSequence(const std::vector<std::string>& items, const qv::Selection& selection) {
  const LRESULT top = SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_GETTOPINDEX, 0, 0);
  FillList(IDC_SEQUENCE, items);
  SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
  for (const std::size_t rank : selection)
    SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_SETSEL, TRUE, static_cast<LPARAM>(rank));
  if (selection.size() == 1)
    SendDlgItemMessageW(Window(), IDC_SEQUENCE, LB_SETCARETINDEX, selection.front(), FALSE);
}

qv::Selection CCsvOptionDlg::PlanSelection() const { return SelectionOf(IDC_PLAN); }
qv::Selection CCsvOptionDlg::SequenceSelection() const { return SelectionOf(IDC_SEQUENCE); }

qv::Selection CCsvOptionDlg::SelectionOf(int list) const {
  const LRESULT count = SendDlgItemMessageW(Window(), list, LB_GETSELCOUNT, 0, 0);
  std::vector<int> ranks(static_cast<std::size_t>(std::max<LRESULT>(count, 0)));
  SendDlgItemMessageW(Window(), list, LB_GETSELITEMS, ranks.size(), reinterpret_cast<LPARAM>(ranks.data()));
  return {ranks.begin(), ranks.end()};
}

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

void CCsvOptionDlg::ShowHeaderWindow(bool isShown) {
  SetDlgItemTextW(Window(), IDC_TOGGLE_HEADERS, isShown ? L"Hide &Header" : L"Show &Header");
  if (isShown)
    headers_.ShowBeside(Window());
  else
    headers_.Hide();
}

void CCsvOptionDlg::Tell(const std::string& sentence) { qv::ShowMessage(sentence.c_str()); }

void CCsvOptionDlg::Close(bool isOk) { EndDialog(Window(), isOk ? IDOK : IDCANCEL); }
