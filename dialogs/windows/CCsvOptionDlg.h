#pragma once

#include "dialogs/FormatOptionView.h"
#include "dialogs/ShownText.h"
#include "dialogs/windows/DialogWindow.h"
#include "dialogs/windows/HeaderMappingDlg.h"

#include <string>
#include <vector>

/// The format option dialog on plain Windows controls.
class CCsvOptionDlg final : public qv::FormatOptionView, public qv::DialogWindow {
 public:
  CCsvOptionDlg(qv::FormatOptionCommands& commands, HWND parent);

  /// IDOK, IDCANCEL, or -1 when the dialog could not be shown.
  INT_PTR DoModal();

  bool TakeControls(qv::OptionControls& controls, std::string& complaint) override;
  void ShowControls(const qv::OptionControls& controls) override;
  void ShowFormatNames(const std::vector<std::string>& names) override;
  void ShowPlanItems(const std::vector<std::string>& items) override;
  void ShowSequence(const std::vector<std::string>& items, const qv::Selection& selection) override;
  qv::Selection PlanSelection() const override;
  qv::Selection SequenceSelection() const override;
  void Enable(const qv::OptionEnabling& enabling) override;
  void ShowHeaderWindow(bool isShown) override;
  void ShowHeaders(const std::vector<std::string>& headers) override { headers_.Refill(headers); }
  void Tell(const std::string& sentence) override;
  void Close(bool isOk) override;

 private:
  using ShownText = qv::ShownText<std::wstring>;

  void Opened() override;
  void Commanded(int control, int notification) override;
  bool TakeText(int control, const ShownText& shown, std::string& text, std::string& complaint) const;
  bool TakeStartLine(int& line, std::string& complaint) const;
  qv::Selection SelectionOf(int list) const;
  void EnableControl(int control, bool isEnabled) const;

  qv::FormatOptionCommands& commands_;
  HWND parent_;
  HeaderMappingDlg headers_;
  std::vector<std::string> formatNames_;
  ShownText shownName_;
  ShownText shownOther_;
};
