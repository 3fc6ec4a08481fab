#pragma once

#include "dialogs/model/FormatOptionView.h"
#include "dialogs/windows/DialogWindow.h"
#include "dialogs/windows/HeaderMappingDlg.h"
#include "dialogs/windows/PreviewDlg.h"

#include <optional>
#include <string>
#include <vector>

/// The format option dialog on plain Windows controls.
class CCsvOptionDlg final : public qv::FormatOptionView, public qv::DialogWindow {
 public:
  CCsvOptionDlg(qv::FormatOptionCommands& commands, HWND parent);

  /// IDOK, IDCANCEL, or -1 when the dialog could not be shown.
  INT_PTR DoModal();
  /// What the dialog does with a message before its window sees it; true when that is all.
  bool TakeMessage(MSG& message);

  bool TakeControls(qv::OptionControls& controls, std::string& complaint) override;
  void ShowControls(const qv::OptionControls& controls) override;
  void ShowNameHint(const std::string& hint) override;
  void ShowFormatNames(const std::vector<std::string>& names) override;
  void ShowPlanItems(const std::vector<std::string>& items) override;
  void ShowUsedPlanItems(const std::vector<bool>& areUsed) override;
  void ShowSequence(const std::vector<std::string>& items, const qv::Selection& selection,
                    std::optional<std::size_t> cursor) override;
  qv::Selection PlanSelection() const override;
  qv::Selection SequenceSelection() const override;
  void Enable(const qv::OptionEnabling& enabling) override;
  void ShowWindow(qv::DialogPart part, bool isShown) override;
  qv::WindowFrame FrameOf(qv::DialogPart part) const override;
  void Place(qv::DialogPart part, const qv::WindowFrame& frame) override;
  qv::WindowFrame Screen() const override;
  void ShowHeaders(const std::vector<std::string>& headers) override { headers_.Refill(headers); }
  void ShowHeaderCaption(const std::string& caption) override { headers_.ShowCaption(caption); }
  void SelectHeaders(const qv::Selection& selection) override { headers_.Select(selection); }
  qv::Selection HeaderSelection() const override { return headers_.Selected(); }
  void ShowPreview(const qv::Preview& preview) override { preview_.Show(preview); }
  void StartPause() override { StartTimer(qv::kPause); }
  void Tell(const std::string& sentence) override;
  bool Ask(const std::string& question) override;
  void Close(bool isOk) override;

 private:
  using ShownText = qv::ShownText<std::wstring>;

  void Opened() override;
  void Commanded(int control, int notification) override;
  void TimerEnded() override { commands_.Run(qv::OptionCommand::EndPause); }
  void DrawItem(const DRAWITEMSTRUCT& item) const override;
  bool TakeText(int control, const ShownText& shown, std::string& text, std::string& complaint) const;
  bool RunOnKey(const MSG& message) const;
  HWND NameEdit() const { return GetWindow(Control(IDC_FORMAT_NAME), GW_CHILD); }
  void CompleteName() const;
  bool ChooseCompleted() const;
  bool Drag(const MSG& message);
  std::optional<std::size_t> DropPlace(POINT at) const;
  void MarkPlace(std::optional<std::size_t> place);
  void Drop(HWND from, POINT at);
  bool ShowNameMenu(const MSG& message) const;
  bool IsClosedComboBox(HWND window) const;
  HWND WindowOf(qv::DialogPart part) const;
  void EnableControl(int control, bool isEnabled) const;

  qv::FormatOptionCommands& commands_;
  HWND parent_;
  HeaderMappingDlg headers_;
  PreviewDlg preview_;
  std::vector<std::string> formatNames_;
  ShownText shownName_;
  HWND dragged_ = nullptr;  // the list in which the mouse is held on a selected entry
  POINT dragStart_{};       // on the screen
  bool isMoved_ = false;
  std::optional<std::size_t> marked_;  // the entry of the sequence before which a line is drawn
  bool isTyping_ = false;              // the last key in the combo box was a character
  ShownText shownOther_;
};
