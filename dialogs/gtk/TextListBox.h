#pragma once

#include "dialogs/model/ColumnLists.h"

#include <gtk/gtk.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qv {

/// UTF-8 for a widget; bytes of the library's text that are none are replaced.
std::string WidgetText(const std::string& text);

/// A frame around the list, with bars that scroll it.
GtkWidget* NewScrolled(GtkWidget* list);

/// The path of a list's row, freed at the end.
class RowPath {
 public:
  explicit RowPath(std::size_t index) : path_(gtk_tree_path_new_from_indices(static_cast<gint>(index), -1)) {}
  ~RowPath() { gtk_tree_path_free(path_); }
  RowPath(const RowPath&) = delete;
  RowPath& operator=(const RowPath&) = delete;
  operator GtkTreePath*() const { return path_; }

 private:
  GtkTreePath* path_;
};

/// A list of texts of which several can be selected.
class TextListBox {
 public:
  /// `name` is the widget's name.
  explicit TextListBox(const char* name);

  /// The widget to be packed: the list in its scrolled window.
  GtkWidget* Widget() const { return scrolled_; }
  GtkWidget* List() const { return list_; }

  void OnSelect(std::function<void()> handler) { onSelect_ = std::move(handler); }
  void OnDoubleClick(std::function<void()> handler) { onDoubleClick_ = std::move(handler); }

  /// Lets selected entries be dragged out of the list, and lets those of `other` be dropped on it. With
  /// `isOrdered` it takes its own too, and the handler gets the row before which they are dropped.
  void OnDrop(const TextListBox& other, bool isOrdered,
              std::function<void(bool isOwn, std::size_t place)> handler);

  /// Changes only the rows that differ, so that the scroll position and the cursor stay where they are; the
  /// cursor starts in the first row.
  void Show(const std::vector<std::string>& texts);
  /// Brings a row into sight and puts the keyboard's cursor there, which selects that row alone.
  void MoveCursor(std::size_t index);
  void Select(const Selection& selection);
  /// Greys the rows for which it is true.
  void Grey(const std::vector<bool>& rows);

  Selection Selected() const;

 private:
  static void SelectionChanged(GtkTreeSelection*, gpointer self);
  static void RowActivated(GtkTreeView*, GtkTreePath*, GtkTreeViewColumn*, gpointer self);

  static gboolean MayToggle(GtkTreeSelection*, GtkTreeModel*, GtkTreePath*, gboolean, gpointer self);
  static gboolean Pressed(GtkWidget*, GdkEventButton* event, gpointer self);
  static gboolean Released(GtkWidget*, GdkEventButton* event, gpointer self);
  static void DragBegun(GtkWidget*, GdkDragContext*, gpointer self);
  static gboolean DragMoved(GtkWidget*, GdkDragContext* context, int x, int y, guint time, gpointer self);
  static void DragLeft(GtkWidget*, GdkDragContext*, guint time, gpointer self);
  static gboolean Dropped(GtkWidget*, GdkDragContext* context, int x, int y, guint time, gpointer self);
  bool TakesFrom(GdkDragContext* context) const;
  GtkTreeView* View() const { return GTK_TREE_VIEW(list_); }

  void Insert(std::size_t index, const std::string& text);
  void Remove(std::size_t index);

  GtkListStore* store_;
  GtkWidget* list_;
  GtkWidget* scrolled_;
  std::vector<std::string> shown_;
  std::function<void()> onSelect_;
  std::function<void()> onDoubleClick_;
  const TextListBox* other_ = nullptr;
  bool isOrdered_ = false;
  bool isHeld_ = false;  // the mouse has gone down on a selected row, which may become a drag
  std::function<void(bool isOwn, std::size_t place)> onDrop_;
};

}  // namespace qv
