#include "dialogs/windows/PreviewDlg.h"

#include "platform/windows/WideText.h"

#include <algorithm>

namespace {

constexpr COLORREF kRemarkColour = RGB(0xFF, 0xDD, 0x88);
constexpr COLORREF kRemarkText = RGB(0, 0, 0);

}  // namespace

PreviewDlg::~PreviewDlg() {
  if (IsWindow(Window()) != FALSE) DestroyWindow(Window());
}

HWND PreviewDlg::Heads() const { return reinterpret_cast<HWND>(SendMessageW(List(), LVM_GETHEADER, 0, 0)); }

bool PreviewDlg::TakeMessage(MSG& message) {
  if (message.message == WM_MOUSEMOVE && (message.hwnd == List() || message.hwnd == Heads()))
    ShowTipAt(message.hwnd,
              {static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))});
  return TakeKeys(message);
}

void PreviewDlg::Opened() {
  // Not every system mirrors back what is drawn into a buffer of a mirrored window.
  const bool isMirrored = (GetWindowLongPtrW(Window(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
  SendMessageW(List(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
               LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | (isMirrored ? 0 : LVS_EX_DOUBLEBUFFER));
  bold_ = FontLike(List(), [](LOGFONTW& font) { font.lfWeight = FW_BOLD; });
  struck_ = FontLike(List(), [](LOGFONTW& font) { font.lfStrikeOut = TRUE; });
  listTip_ = AddToolTip(List(), L"");
  headTip_ = AddToolTip(Heads(), L"");
  // The heads tell the list alone that they are drawn.
  SetWindowLongPtrW(List(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  listProcedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(List(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ListProcedure)));
}

LRESULT CALLBACK PreviewDlg::ListProcedure(HWND list, UINT message, WPARAM wide, LPARAM value) {
  const auto* const self = reinterpret_cast<PreviewDlg*>(GetWindowLongPtrW(list, GWLP_USERDATA));
  if (message == WM_NOTIFY) {
    auto& drawn = *reinterpret_cast<NMCUSTOMDRAW*>(value);
    if (drawn.hdr.code == static_cast<UINT>(NM_CUSTOMDRAW)) return self->DrawHead(drawn);
  }
  return CallWindowProcW(self->listProcedure_, list, message, wide, value);
}

void PreviewDlg::Commanded(int control, int) {
  if (control == IDC_APPLY) commands_.Run(qv::OptionCommand::ApplySuggestion);
  if (control == IDCANCEL) commands_.Run(qv::OptionCommand::TogglePreview);
}

LRESULT PreviewDlg::Notified(NMHDR& notification) {
  if (notification.idFrom != IDC_PREVIEW) return 0;
  if (notification.code == static_cast<UINT>(LVN_GETDISPINFOW))
    FillIn(reinterpret_cast<NMLVDISPINFOW&>(notification).item);
  else if (notification.code == static_cast<UINT>(NM_CUSTOMDRAW))
    return DrawCell(reinterpret_cast<NMLVCUSTOMDRAW&>(notification));
  else if (notification.code == static_cast<UINT>(LVN_ITEMCHANGED))
    ShowSentences();
  return 0;
}

void PreviewDlg::FillIn(LVITEMW& item) const {
  const auto row = static_cast<std::size_t>(item.iItem);
  if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0 || row >= preview_.rows.size()) return;
  const std::wstring text = qv::Widen(preview_.TextAt(row, static_cast<std::size_t>(item.iSubItem)));
  const std::size_t count = text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1);
  item.pszText[count] = L'\0';
}

LRESULT PreviewDlg::DrawCell(NMLVCUSTOMDRAW& drawn) const {
  const DWORD stage = drawn.nmcd.dwDrawStage;
  if (stage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (stage == CDDS_ITEMPREPAINT) return CDRF_NOTIFYSUBITEMDRAW;
  const std::size_t row = drawn.nmcd.dwItemSpec;
  if (stage != (CDDS_ITEMPREPAINT | CDDS_SUBITEM) || row >= preview_.rows.size()) return CDRF_DODEFAULT;
  const auto column = static_cast<std::size_t>(drawn.iSubItem);
  const bool hasRemark = !preview_.RemarkAt(row, column).empty();
  drawn.clrTextBk = hasRemark ? kRemarkColour : GetSysColor(COLOR_WINDOW);
  drawn.clrText = preview_.IsGrey(column) ? GetSysColor(COLOR_GRAYTEXT)
                  : hasRemark             ? kRemarkText
                                          : GetSysColor(COLOR_WINDOWTEXT);
  using State = qv::Preview::RowState;
  const State state = preview_.rows[row].state;
  const HFONT own = reinterpret_cast<HFONT>(SendMessageW(List(), WM_GETFONT, 0, 0));
  SelectObject(drawn.nmcd.hdc, state == State::Header    ? bold_.get()
                               : state == State::LeftOut ? struck_.get()
                                                         : own);
  return CDRF_NEWFONT;
}

LRESULT PreviewDlg::DrawHead(NMCUSTOMDRAW& drawn) const {
  if (drawn.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const std::size_t column = drawn.dwItemSpec;
  if (drawn.dwDrawStage != CDDS_ITEMPREPAINT || column >= preview_.ShownColumns()) return CDRF_DODEFAULT;
  const bool hasRemark = !preview_.HeadRemarkAt(column).empty();
  SetTextColor(drawn.hdc, GetSysColor(preview_.IsGrey(column) ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
  const HFONT own = reinterpret_cast<HFONT>(SendMessageW(Heads(), WM_GETFONT, 0, 0));
  SelectObject(drawn.hdc, hasRemark ? bold_.get() : own);
  return CDRF_NEWFONT;
}

void PreviewDlg::Show(const qv::Preview& preview) {
  preview_ = preview;
  tipPlace_.reset();
  SendMessageW(List(), WM_SETREDRAW, FALSE, 0);
  ShowColumns();
  SendMessageW(List(), LVM_SETITEMCOUNT, preview_.rows.size(), 0);
  SendMessageW(List(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(List(), nullptr, TRUE);
  SetDlgItemTextW(Window(), IDC_SUGGESTION, qv::Widen(preview_.suggestion).c_str());
  ShowWindow(Control(IDC_APPLY), preview_.canApply ? SW_SHOW : SW_HIDE);
  ShowSentences();
}

void PreviewDlg::ShowSentences() const {
  const LRESULT row = SendMessageW(List(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
  SetDlgItemTextW(Window(), IDC_SUMMARY, qv::Widen(preview_.SentenceAt(row)).c_str());
  Arrange();
}

void PreviewDlg::ShowColumns() {
  const std::size_t before = static_cast<std::size_t>(SendMessageW(Heads(), HDM_GETITEMCOUNT, 0, 0));
  for (std::size_t column = before; column > preview_.ShownColumns(); --column)
    SendMessageW(List(), LVM_DELETECOLUMN, column - 1, 0);
  for (std::size_t column = 0; column < preview_.ShownColumns(); ++column) {
    std::wstring head = qv::Widen(preview_.HeadAt(column));
    LVCOLUMNW shown{};
    shown.mask = LVCF_TEXT | LVCF_WIDTH;
    shown.cx = WidthInList(column);
    shown.pszText = head.data();
    SendMessageW(List(), column < before ? LVM_SETCOLUMNW : LVM_INSERTCOLUMNW, column,
                 reinterpret_cast<LPARAM>(&shown));
  }
}

// As wide as its texts, but no wider than a line of them.
int PreviewDlg::WidthInList(std::size_t column) const {
  std::vector<std::string> texts = {preview_.HeadAt(column)};
  for (std::size_t row = 0; row < preview_.rows.size(); ++row) texts.push_back(preview_.TextAt(row, column));
  return std::min(WidthOf(List(), texts), WidthOf(List(), {std::string(30, 'm')})) + WidthOf(List(), {"mmm"});
}

void PreviewDlg::ShowTipAt(HWND window, POINT point) {
  Place place = {-1, -1};
  if (window == List()) {
    LVHITTESTINFO hit{};
    hit.pt = point;
    SendMessageW(window, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    place = {hit.iItem, hit.iItem < 0 ? -1 : hit.iSubItem};
  } else {
    HDHITTESTINFO hit{};
    hit.pt = point;
    SendMessageW(window, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    place = {-1, hit.iItem};
  }
  if (place == tipPlace_) return;
  tipPlace_ = place;
  const auto [row, column] = place;
  std::string remark;
  if (row < 0 && column >= 0) remark = preview_.HeadRemarkAt(static_cast<std::size_t>(column));
  if (row >= 0) remark = preview_.RemarkAt(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
  ChangeToolTip(window == List() ? listTip_ : headTip_, window, qv::Widen(remark));
}

// The sentences below the list are as high as their texts need to be in the window's width.
void PreviewDlg::Arrange() const {
  RECT inside{}, apply{}, gaps{0, 0, 5, 17};
  GetClientRect(Window(), &inside);
  if (listProcedure_ == nullptr || inside.bottom == 0) return;
  GetWindowRect(Control(IDC_APPLY), &apply);
  MapDialogRect(Window(), &gaps);
  const int gap = gaps.right, twoLines = gaps.bottom, width = inside.right - 2 * gap;
  const int applyWidth = apply.right - apply.left;
  const int besideApply = width - (preview_.canApply ? applyWidth + gap : 0);
  int bottom = inside.bottom;
  const auto putAbove = [&](int control, int controlWidth, int height) {
    bottom -= height + gap;
    MoveWindow(Control(control), gap, bottom, controlWidth, height, TRUE);
  };
  putAbove(IDC_SUGGESTION, besideApply,
           preview_.suggestion.empty() ? 0 : std::max(twoLines, HeightOf(IDC_SUGGESTION, besideApply)));
  MoveWindow(Control(IDC_APPLY), inside.right - gap - applyWidth, bottom, applyWidth,
             apply.bottom - apply.top, TRUE);
  // However much is remarked on a row, half of the window is left for the rows.
  putAbove(IDC_SUMMARY, width,
           std::clamp(HeightOf(IDC_SUMMARY, width), twoLines, std::max(twoLines, bottom / 2)));
  putAbove(IDC_PREVIEW, width, std::max(0, bottom - 2 * gap));
}
