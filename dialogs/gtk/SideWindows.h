#pragma once

#include "dialogs/gtk/TextListBox.h"
#include "dialogs/model/FormatOptionView.h"

#include <functional>
#include <string>
#include <vector>

namespace qv {

/// A window beside the dialog that can be used while the dialog is open, and is closed by hiding it.
class SideWindow {
 public:
  SideWindow(GtkWindow* dialog, const char* title, std::function<void()> onClose);
  ~SideWindow();
  SideWindow(const SideWindow&) = delete;
  SideWindow& operator=(const SideWindow&) = delete;

  void ShowCaption(const std::string& caption);
  void Hide() { gtk_widget_hide(window_); }

 protected:
  GtkWindow* Dialog() const { return dialog_; }
  GtkWindow* Window() const { return GTK_WINDOW(window_); }

 private:
  static gboolean Closed(GtkWidget*, GdkEvent*, gpointer self);
  static gboolean KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self);

  GtkWindow* dialog_;
  GtkWidget* window_;
  GtkWindowGroup* group_;
  std::function<void()> onClose_;
};

/// The window "User Header Items".
class HeaderWindow : public SideWindow {
 public:
  explicit HeaderWindow(GtkWindow* dialog, FormatOptionCommands& commands);

  TextListBox& List() { return list_; }
  const TextListBox& List() const { return list_; }
  /// Shows the window with its left edge at the dialog's right one and both bottoms at one height.
  void ShowBeside();

 private:
  TextListBox list_;
};

/// The window "Preview": the sample's rows as the format splits them.
class PreviewWindow : public SideWindow {
 public:
  explicit PreviewWindow(GtkWindow* dialog, FormatOptionCommands& commands);
  ~PreviewWindow();

  void Show(const Preview& preview);
  void ShowBeside();

 private:
  static void DrawCell(GtkTreeViewColumn* column, GtkCellRenderer* cell, GtkTreeModel*, GtkTreeIter* row,
                       gpointer self);
  static gboolean TipWanted(GtkWidget* list, int x, int y, gboolean byKeyboard, GtkTooltip* tip,
                            gpointer self);
  void ShowColumns();
  void AddColumn(std::size_t index);
  GtkTreeView* List() const { return GTK_TREE_VIEW(list_); }

  Preview preview_;
  GtkListStore* store_;  // of row indexes
  GtkWidget* list_;
  GtkWidget* summary_;
  GtkWidget* suggestion_;
  GtkWidget* apply_;
};

}  // namespace qv
