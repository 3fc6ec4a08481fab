#include "dialogs/gtk/TextListBox.h"

#include <algorithm>
#include <utility>

namespace qv {

namespace {

enum StoreColumn { kText, kIsBlack };

/// Between which rows of a list a place of the widget around it is.
struct DropPlace {
  DropPlace(GtkWidget* around, GtkTreeView* list, std::size_t count, int x, int y) {
    GtkTreeViewDropPosition position = GTK_TREE_VIEW_DROP_AFTER;
    gtk_widget_translate_coordinates(around, GTK_WIDGET(list), x, y, &x, &y);
    gtk_tree_view_get_dest_row_at_pos(list, x, y, &path, &position);
    if (path == nullptr && count > 0) path = gtk_tree_path_new_from_indices(static_cast<gint>(count) - 1, -1);
    isBefore = position == GTK_TREE_VIEW_DROP_BEFORE || position == GTK_TREE_VIEW_DROP_INTO_OR_BEFORE;
  }
  ~DropPlace() { gtk_tree_path_free(path); }
  DropPlace(const DropPlace&) = delete;
  DropPlace& operator=(const DropPlace&) = delete;

  /// Of the row that what is dropped comes before.
  std::size_t Index() const {
    if (path == nullptr) return 0;
    return static_cast<std::size_t>(gtk_tree_path_get_indices(path)[0]) + (isBefore ? 0 : 1);
  }

  GtkTreePath* path = nullptr;
  bool isBefore = false;
};

}  // namespace

std::string WidgetText(const std::string& text) {
  char* const valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
  std::string shown = valid;
  g_free(valid);
  return shown;
}

GtkWidget* NewScrolled(GtkWidget* list) {
  GtkWidget* const scrolled = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(scrolled), GTK_SHADOW_IN);
  gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(scrolled), FALSE);
  gtk_container_add(GTK_CONTAINER(scrolled), list);
  return scrolled;
}

TextListBox::TextListBox(const char* name)
    : store_(gtk_list_store_new(2, G_TYPE_STRING, G_TYPE_BOOLEAN)),
      list_(gtk_tree_view_new_with_model(GTK_TREE_MODEL(store_))),
      scrolled_(NewScrolled(list_)) {
  g_object_unref(store_);  // the list holds it
  gtk_widget_set_name(list_, name);
  GtkTreeView* const view = View();
  gtk_tree_view_set_headers_visible(view, FALSE);
  gtk_tree_view_append_column(
      view, gtk_tree_view_column_new_with_attributes("", gtk_cell_renderer_text_new(), "text", kText,
                                                     "sensitive", kIsBlack, nullptr));
  gtk_tree_view_set_search_column(view, kText);
  GtkTreeSelection* const selection = gtk_tree_view_get_selection(view);
  gtk_tree_selection_set_mode(selection, GTK_SELECTION_MULTIPLE);
  g_signal_connect(selection, "changed", G_CALLBACK(SelectionChanged), this);
  g_signal_connect(list_, "row-activated", G_CALLBACK(RowActivated), this);
}

// Dropped on the widget around the list, as a list without entries is disabled and takes nothing.
void TextListBox::OnDrop(const TextListBox& other, bool isOrdered,
                         std::function<void(bool isOwn, std::size_t place)> handler) {
  other_ = &other;
  isOrdered_ = isOrdered;
  onDrop_ = std::move(handler);
  char name[] = "application/x-qvassembly-items";
  const GtkTargetEntry target = {name, GTK_TARGET_SAME_APP, 0};
  gtk_drag_source_set(list_, GDK_BUTTON1_MASK, &target, 1, GDK_ACTION_MOVE);
  gtk_drag_dest_set(scrolled_, GtkDestDefaults(0), &target, 1, GDK_ACTION_MOVE);
  gtk_tree_selection_set_select_function(gtk_tree_view_get_selection(View()), MayToggle, this, nullptr);
  g_signal_connect(list_, "button-press-event", G_CALLBACK(Pressed), this);
  g_signal_connect(list_, "button-release-event", G_CALLBACK(Released), this);
  g_signal_connect(list_, "drag-begin", G_CALLBACK(DragBegun), this);
  g_signal_connect(scrolled_, "drag-motion", G_CALLBACK(DragMoved), this);
  g_signal_connect(scrolled_, "drag-leave", G_CALLBACK(DragLeft), this);
  g_signal_connect(scrolled_, "drag-drop", G_CALLBACK(Dropped), this);
}

gboolean TextListBox::MayToggle(GtkTreeSelection*, GtkTreeModel*, GtkTreePath*, gboolean, gpointer self) {
  return static_cast<TextListBox*>(self)->isHeld_ ? FALSE : TRUE;
}

// On one of several selected rows it would select that one alone, and no more than it could be dragged. So
// the selection stays until the button comes up where it went down.
gboolean TextListBox::Pressed(GtkWidget*, GdkEventButton* event, gpointer self) {
  auto* const box = static_cast<TextListBox*>(self);
  const bool isPlain = event->type == GDK_BUTTON_PRESS && event->button == GDK_BUTTON_PRIMARY &&
                       (event->state & gtk_accelerator_get_default_mod_mask()) == 0;
  GtkTreePath* row = nullptr;
  const auto x = static_cast<int>(event->x), y = static_cast<int>(event->y);
  if (isPlain) gtk_tree_view_get_path_at_pos(box->View(), x, y, &row, nullptr, nullptr, nullptr);
  GtkTreeSelection* const selection = gtk_tree_view_get_selection(box->View());
  box->isHeld_ = row != nullptr && gtk_tree_selection_path_is_selected(selection, row) != FALSE;
  gtk_tree_path_free(row);
  return FALSE;
}

gboolean TextListBox::Released(GtkWidget*, GdkEventButton* event, gpointer self) {
  auto* const box = static_cast<TextListBox*>(self);
  if (!std::exchange(box->isHeld_, false)) return FALSE;
  GtkTreePath* row = nullptr;
  const auto x = static_cast<int>(event->x), y = static_cast<int>(event->y);
  if (gtk_tree_view_get_path_at_pos(box->View(), x, y, &row, nullptr, nullptr, nullptr) != FALSE)
    gtk_tree_view_set_cursor(box->View(), row, nullptr, FALSE);
  gtk_tree_path_free(row);
  return FALSE;
}

void TextListBox::DragBegun(GtkWidget*, GdkDragContext*, gpointer self) {
  static_cast<TextListBox*>(self)->isHeld_ = false;
}

bool TextListBox::TakesFrom(GdkDragContext* context) const {
  const GtkWidget* const source = gtk_drag_get_source_widget(context);
  return source == other_->list_ || (isOrdered_ && source == list_);
}

gboolean TextListBox::DragMoved(GtkWidget* around, GdkDragContext* context, int x, int y, guint time,
                                gpointer self) {
  const auto* const box = static_cast<TextListBox*>(self);
  if (!box->TakesFrom(context)) return FALSE;
  const DropPlace place(around, box->View(), box->shown_.size(), x, y);
  if (box->isOrdered_)
    gtk_tree_view_set_drag_dest_row(box->View(), place.path,
                                    place.isBefore ? GTK_TREE_VIEW_DROP_BEFORE : GTK_TREE_VIEW_DROP_AFTER);
  gdk_drag_status(context, GDK_ACTION_MOVE, time);
  return TRUE;
}

void TextListBox::DragLeft(GtkWidget*, GdkDragContext*, guint, gpointer self) {
  gtk_tree_view_set_drag_dest_row(static_cast<TextListBox*>(self)->View(), nullptr,
                                  GTK_TREE_VIEW_DROP_BEFORE);
}

gboolean TextListBox::Dropped(GtkWidget* around, GdkDragContext* context, int x, int y, guint time,
                              gpointer self) {
  const auto* const box = static_cast<TextListBox*>(self);
  if (!box->TakesFrom(context)) return FALSE;
  const DropPlace place(around, box->View(), box->shown_.size(), x, y);
  const bool isOwn = gtk_drag_get_source_widget(context) == box->list_;
  gtk_drag_finish(context, TRUE, FALSE, time);
  box->onDrop_(isOwn, place.Index());
  return TRUE;
}

void TextListBox::Show(const std::vector<std::string>& texts) {
  for (std::size_t index = 0; index < texts.size(); ++index) {
    const auto here = shown_.begin() + static_cast<std::ptrdiff_t>(std::min(index, shown_.size()));
    const auto found = std::find(here, shown_.end(), texts[index]);
    if (found == shown_.end())
      Insert(index, texts[index]);
    else
      for (auto gap = found - here; gap > 0; --gap) Remove(index);
  }
  while (shown_.size() > texts.size()) Remove(texts.size());

  GtkTreePath* cursor = nullptr;
  gtk_tree_view_get_cursor(View(), &cursor, nullptr);
  if (cursor == nullptr && !texts.empty()) {
    MoveCursor(0);
    Select({});
  }
  gtk_tree_path_free(cursor);
}

void TextListBox::Insert(std::size_t index, const std::string& text) {
  shown_.insert(shown_.begin() + static_cast<std::ptrdiff_t>(index), text);
  gtk_list_store_insert_with_values(store_, nullptr, static_cast<gint>(index), kText,
                                    WidgetText(text).c_str(), kIsBlack, TRUE, -1);
}

void TextListBox::Remove(std::size_t index) {
  shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(index));
  GtkTreeIter row;
  gtk_tree_model_get_iter(GTK_TREE_MODEL(store_), &row, RowPath(index));
  gtk_list_store_remove(store_, &row);
}

void TextListBox::MoveCursor(std::size_t index) {
  const RowPath path(index);
  gtk_tree_view_set_cursor(View(), path, nullptr, FALSE);
  gtk_tree_view_scroll_to_cell(View(), path, nullptr, FALSE, 0, 0);
}

void TextListBox::Select(const Selection& selection) {
  GtkTreeSelection* const selected = gtk_tree_view_get_selection(View());
  gtk_tree_selection_unselect_all(selected);
  for (const std::size_t index : selection) gtk_tree_selection_select_path(selected, RowPath(index));
}

void TextListBox::Grey(const std::vector<bool>& rows) {
  GtkTreeModel* const model = GTK_TREE_MODEL(store_);
  GtkTreeIter row;
  gboolean isThere = gtk_tree_model_get_iter_first(model, &row);
  for (std::size_t index = 0; index < rows.size() && isThere != FALSE; ++index) {
    gtk_list_store_set(store_, &row, kIsBlack, rows[index] ? FALSE : TRUE, -1);
    isThere = gtk_tree_model_iter_next(model, &row);
  }
}

Selection TextListBox::Selected() const {
  Selection selection;
  GtkTreeSelection* const selected = gtk_tree_view_get_selection(View());
  GList* const rows = gtk_tree_selection_get_selected_rows(selected, nullptr);
  for (const GList* row = rows; row != nullptr; row = row->next)
    selection.push_back(
        static_cast<std::size_t>(gtk_tree_path_get_indices(static_cast<GtkTreePath*>(row->data))[0]));
  g_list_free_full(rows, reinterpret_cast<GDestroyNotify>(gtk_tree_path_free));
  return selection;
}

void TextListBox::SelectionChanged(GtkTreeSelection*, gpointer self) {
  const auto* const box = static_cast<TextListBox*>(self);
  if (box->onSelect_) box->onSelect_();
}

// The keyboard activates rows too: Space, which is to select, and Return in the box that finds a row by its
// text.
void TextListBox::RowActivated(GtkTreeView*, GtkTreePath*, GtkTreeViewColumn*, gpointer self) {
  const auto* const box = static_cast<TextListBox*>(self);
  GdkEvent* const event = gtk_get_current_event();
  const bool isKey = event != nullptr && event->type == GDK_KEY_PRESS;
  if (event != nullptr) gdk_event_free(event);
  if (!isKey && box->onDoubleClick_) box->onDoubleClick_();
}

}  // namespace qv
