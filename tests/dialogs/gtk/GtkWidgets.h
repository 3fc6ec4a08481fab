#pragma once

// Finds the dialog's widgets by their texts, and reaches them from the thread of the person who uses them.

#include "tests/dialogs/DialogDriver.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <future>
#include <string>
#include <utility>

/// Runs `action` on the thread of the windows, while they wait for input, and hands back what it returns.
template <class Action>
auto OnWindowThread(Action action) {
  using Result = decltype(action());
  std::packaged_task<Result()> task(action);
  auto result = task.get_future();
  auto* const shared = &task;
  g_idle_add_full(
      G_PRIORITY_LOW,
      [](gpointer given) -> gboolean {
        (*static_cast<decltype(shared)>(given))();
        return G_SOURCE_REMOVE;
      },
      shared, nullptr);
  return result.get();
}

inline GtkWindow* FindWindowThat(const std::function<bool(GtkWindow*)>& matches) {
  GtkWindow* found = nullptr;
  GList* const windows = gtk_window_list_toplevels();
  for (const GList* entry = windows; entry != nullptr; entry = entry->next)
    if (matches(GTK_WINDOW(entry->data))) found = GTK_WINDOW(entry->data);
  g_list_free(windows);
  return found;
}

inline GtkWindow* FindWindow(const std::string& title) {
  return FindWindowThat([&](GtkWindow* window) {
    const char* const text = gtk_window_get_title(window);
    return text != nullptr && std::string(text).starts_with(title) && !GTK_IS_MESSAGE_DIALOG(window);
  });
}

inline GtkWindow* FindMessage() {
  return FindWindowThat([](GtkWindow* window) { return GTK_IS_MESSAGE_DIALOG(window) != FALSE; });
}

inline GtkWidget* Find(GtkWidget* widget, const std::function<bool(GtkWidget*)>& matches) {
  if (matches(widget)) return widget;
  if (!GTK_IS_CONTAINER(widget)) return nullptr;
  GtkWidget* found = nullptr;
  GList* const children = gtk_container_get_children(GTK_CONTAINER(widget));
  for (const GList* child = children; child != nullptr && found == nullptr; child = child->next)
    found = Find(GTK_WIDGET(child->data), matches);
  g_list_free(children);
  return found;
}

/// A text of the toolkit's, which is freed; nothing for none.
inline std::string Taken(char* given) {
  const std::string text = given == nullptr ? "" : given;
  g_free(given);
  return text;
}

inline std::string WithoutMnemonic(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), '_'), text.end());
  return text;
}

inline std::string LabelOf(GtkWidget* button) {
  const char* const label = gtk_button_get_label(GTK_BUTTON(button));
  return label == nullptr ? std::string() : WithoutMnemonic(label);
}

inline bool Bears(GtkWidget* widget, const std::string& text) {
  if (GTK_IS_WINDOW(widget)) return false;
  if (gtk_widget_get_name(widget) == text) return true;
  if (GTK_IS_LABEL(widget))
    return gtk_label_get_mnemonic_widget(GTK_LABEL(widget)) != nullptr &&
           gtk_label_get_text(GTK_LABEL(widget)) == text;
  const char* const spoken = atk_object_get_name(gtk_widget_get_accessible(widget));
  return (GTK_IS_BUTTON(widget) && LabelOf(widget) == text) || (spoken != nullptr && spoken == text) ||
         Taken(gtk_widget_get_tooltip_text(widget)) == text;
}

inline GtkWindow* WindowOf(Control control) { return FindWindow(TitleOf(RowOf(control).window)); }

inline GtkWidget* Widget(Control control) {
  GtkWidget* const window = GTK_WIDGET(WindowOf(control));
  const std::string text = RowOf(control).text;
  if (text.empty()) return window;
  GtkWidget* found = Find(window, [&](GtkWidget* widget) { return Bears(widget, text); });
  if (found == nullptr && text.starts_with("Show "))
    found = Find(window, [&](GtkWidget* widget) { return Bears(widget, "Hide" + text.substr(4)); });
  if (found == nullptr) {
    ADD_FAILURE() << "no control " << text;
    std::abort();
  }
  GtkWidget* const labelled = GTK_IS_LABEL(found) ? gtk_label_get_mnemonic_widget(GTK_LABEL(found)) : nullptr;
  return labelled != nullptr ? labelled : found;
}

// The middle of a widget, or of a row of a list, on the screen.
inline std::pair<int, int> ScreenPoint(GtkWidget* widget, int x, int y) {
  int left = 0, top = 0;
  gdk_window_get_origin(gtk_widget_get_window(gtk_widget_get_toplevel(widget)), &left, &top);
  gtk_widget_translate_coordinates(widget, gtk_widget_get_toplevel(widget), x, y, &x, &y);
  return {left + x, top + y};
}

inline void Xdotool(const std::string& arguments) {
  EXPECT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << arguments;
}

/// Lets the windows do everything that was asked of them so far.
inline void Settle() {
  for (int round = 0; round < 3; ++round) OnWindowThread([] { gdk_display_sync(gdk_display_get_default()); });
}
