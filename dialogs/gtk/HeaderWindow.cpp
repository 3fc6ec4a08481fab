#include "dialogs/gtk/HeaderWindow.h"

#include "dialogs/gtk/Icons.h"

namespace qv {

HeaderWindow::HeaderWindow(GtkWindow* dialog, std::function<void()> onRefresh, std::function<void()> onClose)
    : dialog_(dialog),
      window_(gtk_window_new(GTK_WINDOW_TOPLEVEL)),
      group_(gtk_window_group_new()),
      list_("headers"),
      onRefresh_(std::move(onRefresh)),
      onClose_(std::move(onClose)) {
  // In a group of its own: the modal dialog keeps the input of its own group's windows to itself.
  gtk_window_group_add_window(group_, GTK_WINDOW(window_));
  Build();
}

HeaderWindow::~HeaderWindow() {
  gtk_widget_destroy(window_);
  g_object_unref(group_);
}

void HeaderWindow::Build() {
  gtk_window_set_title(GTK_WINDOW(window_), "User Header Items");
  gtk_window_set_transient_for(GTK_WINDOW(window_), dialog_);
  gtk_window_set_type_hint(GTK_WINDOW(window_), GDK_WINDOW_TYPE_HINT_DIALOG);
  gtk_window_set_default_size(GTK_WINDOW(window_), 250, 320);
  gtk_container_set_border_width(GTK_CONTAINER(window_), 8);

  GtkWidget* const refresh = NewIconButton(Icon::Refresh, "Refresh");
  gtk_widget_set_halign(refresh, GTK_ALIGN_START);
  GtkWidget* const box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 6);
  gtk_box_pack_start(GTK_BOX(box), refresh, FALSE, FALSE, 0);
  gtk_box_pack_start(GTK_BOX(box), list_.Widget(), TRUE, TRUE, 0);
  gtk_container_add(GTK_CONTAINER(window_), box);
  gtk_widget_show_all(box);

  g_signal_connect(refresh, "clicked", G_CALLBACK(RefreshClicked), this);
  g_signal_connect(window_, "delete-event", G_CALLBACK(Closed), this);
  g_signal_connect(window_, "key-press-event", G_CALLBACK(KeyPressed), this);
}

void HeaderWindow::ShowBeside() {
  GdkRectangle dialog{};
  gdk_window_get_frame_extents(gtk_widget_get_window(GTK_WIDGET(dialog_)), &dialog);
  int width = 0, height = 0, dialogWidth = 0, dialogHeight = 0;
  gtk_window_get_size(GTK_WINDOW(window_), &width, &height);
  gtk_window_get_size(dialog_, &dialogWidth, &dialogHeight);
  // What a window manager puts around the window is not known before it is shown; it puts the same around
  // both.
  const int frame = dialog.height - dialogHeight;
  gtk_window_move(GTK_WINDOW(window_), dialog.x + dialog.width, dialog.y + dialog.height - height - frame);
  gtk_window_present(GTK_WINDOW(window_));
}

void HeaderWindow::RefreshClicked(GtkButton*, gpointer self) {
  static_cast<HeaderWindow*>(self)->onRefresh_();
}

gboolean HeaderWindow::Closed(GtkWidget*, GdkEvent*, gpointer self) {
  static_cast<HeaderWindow*>(self)->onClose_();
  return TRUE;
}

gboolean HeaderWindow::KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self) {
  if (event->keyval != GDK_KEY_Escape) return FALSE;
  static_cast<HeaderWindow*>(self)->onClose_();
  return TRUE;
}

}  // namespace qv
