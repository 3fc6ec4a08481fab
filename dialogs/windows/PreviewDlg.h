#pragma once

#include "dialogs/model/FormatOptionView.h"
#include "dialogs/windows/DialogWindow.h"
#include "dialogs/windows/Resources.h"

#include <commctrl.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

/// The window "Preview": the sample's rows as the format splits them.
class PreviewDlg final : public qv::DialogWindow {
 public:
  explicit PreviewDlg(qv::FormatOptionCommands& commands) : commands_(commands) {}
  ~PreviewDlg() override;

  bool CreateHidden(HWND dialog) { return Create(IDD_PREVIEW, dialog); }
  /// Handles the keys of this window, and shows remarks under the mouse. True when that is all.
  bool TakeMessage(MSG& message);

  void Show(const qv::Preview& preview);

 private:
  using Place = std::pair<int, int>;  // row, which is -1 for the heads, and column

  void Opened() override;
  void Commanded(int control, int notification) override;
  LRESULT Notified(NMHDR& notification) override;
  void Resized() override { Arrange(); }
  void Arrange() const;
  void ShowSentences() const;
  LRESULT DrawCell(NMLVCUSTOMDRAW& drawn) const;
  LRESULT DrawHead(NMCUSTOMDRAW& drawn) const;
  static LRESULT CALLBACK ListProcedure(HWND list, UINT message, WPARAM wide, LPARAM value);
  void FillIn(LVITEMW& item) const;
  void ShowColumns();
  int WidthInList(std::size_t column) const;
  void ShowTipAt(HWND window, POINT point);
  HWND List() const { return Control(IDC_PREVIEW); }
  HWND Heads() const;

  qv::FormatOptionCommands& commands_;
  qv::Preview preview_;
  OwnedFont bold_, struck_;
  WNDPROC listProcedure_ = nullptr;  // the list's own
  HWND listTip_ = nullptr, headTip_ = nullptr;
  std::optional<Place> tipPlace_;
};
