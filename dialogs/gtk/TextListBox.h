#pragma once

#include "dialogs/ColumnLists.h"

#include <gtk/gtk.h>

#include <functional>
#include <string>
#include <vector>

namespace qv {

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

  void Show(const std::vector<std::string>& texts);
  void Select(const Selection& selection);

  Selection Selected() const;

 private:
  static void SelectionChanged(GtkTreeSelection*, gpointer self);
  static void RowActivated(GtkTreeView*, GtkTreePath*, GtkTreeViewColumn*, gpointer self);

  GtkListStore* store_;
  GtkWidget* list_;
  GtkWidget* scrolled_;
  std::function<void()> onSelect_;
  std::function<void()> onDoubleClick_;
};

}  // namespace qv
