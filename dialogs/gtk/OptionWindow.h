#pragma once

#include "dialogs/FormatOptionView.h"
#include "dialogs/ShownText.h"
#include "dialogs/gtk/HeaderWindow.h"
#include "dialogs/gtk/TextListBox.h"

#include <gtk/gtk.h>

#include <array>
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
  void ShowFormatNames(const std::vector<std::string>& names) override;
  void ShowPlanItems(const std::vector<std::string>& items) override { plan_.Show(items); }
  void ShowSequence(const std::vector<std::string>& items, const Selection& selection) override;
  Selection PlanSelection() const override { return plan_.Selected(); }
  Selection SequenceSelection() const override { return sequence_.Selected(); }
  void Enable(const OptionEnabling& enabling) override;
  void ShowHeaderWindow(bool isShown) override;
  void ShowHeaders(const std::vector<std::string>& headers) override { headers_.ShowHeaders(headers); }
  void Tell(const std::string& sentence) override;
  void Close(bool isOk) override;

 private:
  GtkWidget* NewCommandButton(const char* label, OptionCommand command);
  GtkWidget* NewCommandBox(const char* label, OptionCommand command);
  void RunOnSignal(GtkWidget* widget, const char* signal, OptionCommand command);
  void Build();
  GtkWidget* BuildNameRow();
  GtkWidget* BuildReadingRow();
  GtkWidget* BuildDelimiters();
  GtkWidget* BuildPartName();
  GtkWidget* BuildLists();
  GtkEntry* NameEntry() const;
  static void FormatChanged(GtkComboBox*, gpointer self);
  static gboolean KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self);

  FormatOptionCommands& commands_;
  GtkWidget* dialog_;
  GtkWidget* names_ = nullptr;
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
  TextListBox plan_;
  TextListBox sequence_;
  HeaderWindow headers_;
  std::vector<std::string> formatNames_;
  ShownText<std::string> shownName_;
  ShownText<std::string> shownOther_;
  bool isOpen_ = true;
  bool isOk_ = false;
};

}  // namespace qv
