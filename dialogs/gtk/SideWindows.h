#pragma once

#include "dialogs/gtk/TextListBox.h"
#include "dialogs/model/FormatOptionView.h"

#include <functional>
#include <string>
#include <vector>

namespace qv {

/// With what the window manager puts around it.
WindowFrame FrameOf(GtkWindow* window);

/// A window beside the dialog that can be used while the dialog is open, and is closed by hiding it.
class SideWindow {
 public:
  SideWindow(GtkWindow* dialog, const char* title, std::function<void()> onClose);
  ~SideWindow();
  SideWindow(const SideWindow&) = delete;
  SideWindow& operator=(const SideWindow&) = delete;

  void ShowCaption(const std::string& caption);
  void Show(bool isShown);
  WindowFrame Frame() const;
  void Place(const WindowFrame& frame);

 protected:
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

 private:
  TextListBox list_;
};

/// The window "Preview": the sample's rows as the format splits them.
class PreviewWindow : public SideWindow {
 public:
  explicit PreviewWindow(GtkWindow* dialog, FormatOptionCommands& commands);
  ~PreviewWindow();

  void ShowRows(const Preview& preview);

 private:
  static void DrawCell(GtkTreeViewColumn* column, GtkCellRenderer* cell, GtkTreeModel*, GtkTreeIter* row,
                       gpointer self);
  static gboolean TipWanted(GtkWidget* list, int x, int y, gboolean byKeyboard, GtkTooltip* tip,
                            gpointer self);
  static void RowSelected(GtkTreeSelection* selection, gpointer self);
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
