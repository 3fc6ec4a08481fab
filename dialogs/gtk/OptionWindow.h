#pragma once

#include "dialogs/gtk/SideWindows.h"
#include "dialogs/gtk/TextListBox.h"
#include "dialogs/model/FormatOptionView.h"

#include <gtk/gtk.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace qv {

/// The format option dialog on GTK.
class OptionWindow final : public FormatOptionView {
 public:
  explicit OptionWindow(FormatOptionCommands& commands);
  ~OptionWindow() override;
  OptionWindow(const OptionWindow&) = delete;
  OptionWindow& operator=(const OptionWindow&) = delete;

  /// Runs the dialog modally; true when it ended with OK.
  bool Run();

  bool TakeControls(OptionControls& controls, std::string& complaint) override;
  void ShowControls(const OptionControls& controls) override;
  void ShowNameHint(const std::string& hint) override;
  void ShowFormatNames(const std::vector<std::string>& names) override;
  void ShowPlanItems(const std::vector<std::string>& items) override;
  void ShowUsedPlanItems(const std::vector<bool>& areUsed) override { plan_.Grey(areUsed); }
  void ShowSequence(const std::vector<std::string>& items, const Selection& selection,
                    std::optional<std::size_t> cursor) override;
  Selection PlanSelection() const override { return plan_.Selected(); }
  Selection SequenceSelection() const override { return sequence_.Selected(); }
  void Enable(const OptionEnabling& enabling) override;
  void ShowWindow(DialogPart part, bool isShown) override;
  WindowFrame FrameOf(DialogPart part) const override;
  void Place(DialogPart part, const WindowFrame& frame) override;
  WindowFrame Screen() const override;
  void ShowHeaders(const std::vector<std::string>& headers) override { headers_.List().Show(headers); }
  void ShowHeaderCaption(const std::string& caption) override { headers_.ShowCaption(caption); }
  void SelectHeaders(const Selection& selection) override { headers_.List().Select(selection); }
  Selection HeaderSelection() const override { return headers_.List().Selected(); }
  void ShowPreview(const Preview& preview) override { preview_.ShowRows(preview); }
  void StartPause() override;
  void Tell(const std::string& sentence) override;
  bool Ask(const std::string& question) override;
  void Close(bool isOk) override;

 private:
  GtkWidget* NewCommandButton(const char* label, OptionCommand command);
  GtkWidget* NewBox(const char* label, OptionCommand command = OptionCommand::Edit);
  GtkWidget* NewEntry();
  void RunOnSignal(GtkWidget* widget, const char* signal, OptionCommand command);
  void Build();
  GtkWidget* BuildNameRow();
  GtkWidget* BuildReadingRow();
  GtkWidget* BuildDelimiters();
  GtkWidget* BuildPartName();
  GtkWidget* BuildLists();
  int ShowMessage(const char* title, const std::string& text, GtkMessageType type, GtkButtonsType buttons);
  SideWindow& Beside(DialogPart part);
  void GrowLists();
  GtkEntry* NameEntry() const;
  static void FormatChanged(GtkComboBox*, gpointer self);
  static void NamesDropped(GtkComboBox* names, GParamSpec*, gpointer);
  static gboolean LimitNames(gpointer names);
  static void MenuOpened(GtkEntry*, GtkWidget* menu, gpointer self);
  void CompleteNames();
  void ShortenNames();
  bool ChooseCompleted();
  bool RunOnKey(guint key, guint modifiers);
  static gboolean PauseEnded(gpointer self);
  static gboolean KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self);

  FormatOptionCommands& commands_;
  GtkWidget* dialog_;
  GtkWidget* names_ = nullptr;
  GtkWidget* nameHint_ = nullptr;
  GtkWidget* default_ = nullptr;
  GtkWidget* startLine_ = nullptr;
  GtkWidget* qualifier_ = nullptr;
  std::array<GtkWidget*, kDelimiterNames.size()> delimiters_{};
  GtkWidget* otherDelimiters_ = nullptr;
  GtkWidget* nameOnly_ = nullptr;
  GtkWidget* nameWithPath_ = nullptr;
  GtkWidget* treatAsOne_ = nullptr;
  GtkWidget* delete_ = nullptr;
  GtkWidget* up_ = nullptr;
  GtkWidget* down_ = nullptr;
  GtkWidget* toggleHeaders_ = nullptr;
  GtkWidget* togglePreview_ = nullptr;
  TextListBox plan_;
  TextListBox sequence_;
  HeaderWindow headers_;
  PreviewWindow preview_;
  guint pause_ = 0;  // the timer; 0: none runs
  std::vector<std::string> formatNames_;
  ShownText<std::string> shownName_;
  ShownText<std::string> shownOther_;
  bool isOpen_ = true;
  bool isOk_ = false;
};

}  // namespace qv
