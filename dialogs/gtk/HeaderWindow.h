#pragma once

#include "dialogs/gtk/TextListBox.h"

#include <functional>
#include <string>
#include <vector>

namespace qv {

/// The window "User Header Items" beside the dialog.
class HeaderWindow {
 public:
  HeaderWindow(GtkWindow* dialog, std::function<void()> onRefresh, std::function<void()> onClose);
  ~HeaderWindow();
  HeaderWindow(const HeaderWindow&) = delete;
  HeaderWindow& operator=(const HeaderWindow&) = delete;

  void ShowHeaders(const std::vector<std::string>& headers) { list_.Show(headers); }
  /// Shows the window with its left edge at the dialog's right one and both bottoms at one height.
  void ShowBeside();
  void Hide() { gtk_widget_hide(window_); }

 private:
  void Build();
  static void RefreshClicked(GtkButton*, gpointer self);
  static gboolean Closed(GtkWidget*, GdkEvent*, gpointer self);
  static gboolean KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self);

  GtkWindow* dialog_;
  GtkWidget* window_;
  GtkWindowGroup* group_;
  TextListBox list_;
  std::function<void()> onRefresh_;
  std::function<void()> onClose_;
};

}  // namespace qv
