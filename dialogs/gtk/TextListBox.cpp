#include "dialogs/gtk/TextListBox.h"

#include "dialogs/gtk/WidgetText.h"

namespace qv {

TextListBox::TextListBox(const char* name)
    : store_(gtk_list_store_new(1, G_TYPE_STRING)),
      list_(gtk_tree_view_new_with_model(GTK_TREE_MODEL(store_))),
      scrolled_(gtk_scrolled_window_new(nullptr, nullptr)) {
  g_object_unref(store_);  // the list holds it
  gtk_widget_set_name(list_, name);
  GtkTreeView* const view = GTK_TREE_VIEW(list_);
  gtk_tree_view_set_headers_visible(view, FALSE);
  gtk_tree_view_append_column(
      view, gtk_tree_view_column_new_with_attributes("", gtk_cell_renderer_text_new(), "text", 0, nullptr));
  gtk_tree_view_set_search_column(view, 0);
  GtkTreeSelection* const selection = gtk_tree_view_get_selection(view);
  gtk_tree_selection_set_mode(selection, GTK_SELECTION_MULTIPLE);
  g_signal_connect(selection, "changed", G_CALLBACK(SelectionChanged), this);
  g_signal_connect(list_, "row-activated", G_CALLBACK(RowActivated), this);

  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scrolled_), GTK_POLICY_AUTOMATIC, GTK_POLICY_AUTOMATIC);
  gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(scrolled_), GTK_SHADOW_IN);
  gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(scrolled_), FALSE);
  gtk_container_add(GTK_CONTAINER(scrolled_), list_);
}

void TextListBox::Show(const std::vector<std::string>& texts) {
  // Filled while no list looks at it: a row costs a fraction of what it does otherwise.
  GtkListStore* const store = gtk_list_store_new(1, G_TYPE_STRING);
  for (const std::string& text : texts)
    gtk_list_store_insert_with_values(store, nullptr, -1, 0, WidgetText(text).c_str(), -1);
  gtk_tree_view_set_model(GTK_TREE_VIEW(list_), GTK_TREE_MODEL(store));
  gtk_tree_view_set_search_column(GTK_TREE_VIEW(list_), 0);
  g_object_unref(store);
  store_ = store;
}

void TextListBox::Select(const Selection& selection) {
  GtkTreeView* const view = GTK_TREE_VIEW(list_);
  gtk_tree_selection_unselect_all(gtk_tree_view_get_selection(view));
  for (const std::size_t rank : selection) {
    GtkTreePath* const path = gtk_tree_path_new_from_indices(static_cast<gint>(rank), -1);
    gtk_tree_selection_select_path(gtk_tree_view_get_selection(view), path);
    if (selection.size() == 1) gtk_tree_view_scroll_to_cell(view, path, nullptr, FALSE, 0, 0);
    gtk_tree_path_free(path);
  }
}

Selection TextListBox::Selected() const {
  Selection selection;
  GtkTreeSelection* const selected = gtk_tree_view_get_selection(GTK_TREE_VIEW(list_));
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

// The keyboard activates rows too; Enter is the dialog's OK, as it is in every other control.
void TextListBox::RowActivated(GtkTreeView* list, GtkTreePath*, GtkTreeViewColumn*, gpointer self) {
  const auto* const box = static_cast<TextListBox*>(self);
  GdkEvent* const event = gtk_get_current_event();
  const bool isKey = event != nullptr && event->type == GDK_KEY_PRESS;
  if (event != nullptr) gdk_event_free(event);
  if (isKey)
    gtk_window_activate_default(GTK_WINDOW(gtk_widget_get_toplevel(GTK_WIDGET(list))));
  else if (box->onDoubleClick_)
    box->onDoubleClick_();
}

}  // namespace qv
