// Uses the GTK windows under an X server: widgets are found by their texts, mouse and keyboard go through
// xdotool.

#include "tests/dialogs/DialogDriver.h"

#include <QVAssemblyFile/MessageBox.h>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gdk/gdkx.h>

namespace {

using namespace std::chrono_literals;

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

/// Waits, on the driver's thread, until the windows have become as they should.
bool WaitUntil(const std::function<bool()>& isSo) {
  for (int attempt = 0; attempt < 500; ++attempt) {
    if (OnWindowThread(isSo)) return true;
    std::this_thread::sleep_for(10ms);
  }
  return false;
}

GtkWindow* FindWindowThat(const std::function<bool(GtkWindow*)>& matches) {
  GtkWindow* found = nullptr;
  GList* const windows = gtk_window_list_toplevels();
  for (const GList* entry = windows; entry != nullptr; entry = entry->next)
    if (matches(GTK_WINDOW(entry->data))) found = GTK_WINDOW(entry->data);
  g_list_free(windows);
  return found;
}

GtkWindow* FindWindow(const std::string& title) {
  return FindWindowThat([&](GtkWindow* window) {
    const char* const text = gtk_window_get_title(window);
    return text != nullptr && title == text && !GTK_IS_MESSAGE_DIALOG(window);
  });
}

GtkWindow* FindMessage() {
  return FindWindowThat([](GtkWindow* window) { return GTK_IS_MESSAGE_DIALOG(window) != FALSE; });
}

GtkWidget* Find(GtkWidget* widget, const std::function<bool(GtkWidget*)>& matches) {
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
std::string Taken(char* given) {
  const std::string text = given == nullptr ? "" : given;
  g_free(given);
  return text;
}

std::string WithoutMnemonic(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), '_'), text.end());
  return text;
}

std::string LabelOf(GtkWidget* button) {
  const char* const label = gtk_button_get_label(GTK_BUTTON(button));
  return label == nullptr ? std::string() : WithoutMnemonic(label);
}

// How a person finds each control: by the text on it, the label before it, or its tool tip.
const char* const kTexts[] = {"Format Name",
                              "Set as default form",
                              "Starting reading line:",
                              "Text qualifier:",
                              "Tab",
                              "Semicolon",
                              "Comma",
                              "Space",
                              "Other",
                              "Other delimiters",
                              "Part Name Only",
                              "Part Name With Full Path",
                              "Treat consecutive delimiters as one",
                              "Plan items",
                              "Item and sequence of one record",
                              "Add  >  ",
                              "<  Delete",
                              "Up",
                              "Down",
                              "Show Header",
                              "OK",
                              "Cancel",
                              "Refresh"};

bool Bears(GtkWidget* widget, const std::string& text) {
  if (GTK_IS_LABEL(widget))
    return gtk_label_get_mnemonic_widget(GTK_LABEL(widget)) != nullptr &&
           gtk_label_get_text(GTK_LABEL(widget)) == text;
  const char* const spoken = atk_object_get_name(gtk_widget_get_accessible(widget));
  return (GTK_IS_BUTTON(widget) && LabelOf(widget) == text) || (spoken != nullptr && spoken == text) ||
         Taken(gtk_widget_get_tooltip_text(widget)) == text;
}

GtkWindow* WindowOf(Control control) {
  const bool isInHeaderWindow = control == Control::Refresh || control == Control::Headers;
  return FindWindow(isInHeaderWindow ? "User Header Items" : "Option");
}

GtkWidget* Widget(Control control) {
  GtkWidget* const window = GTK_WIDGET(WindowOf(control));
  if (control == Control::Headers)
    return Find(window, [](GtkWidget* widget) { return GTK_IS_TREE_VIEW(widget) != FALSE; });
  const std::string text = kTexts[static_cast<int>(control)];
  GtkWidget* found = Find(window, [&](GtkWidget* widget) { return Bears(widget, text); });
  if (found == nullptr && control == Control::ShowHeader)
    found = Find(window, [](GtkWidget* widget) { return Bears(widget, "Hide Header"); });
  if (found != nullptr) return GTK_IS_LABEL(found) ? gtk_label_get_mnemonic_widget(GTK_LABEL(found)) : found;
  ADD_FAILURE() << "no control " << text;
  std::abort();
}

GtkEntry* EntryOf(Control control) {
  GtkWidget* const widget = Widget(control);
  return GTK_ENTRY(GTK_IS_COMBO_BOX(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : widget);
}

GtkTreeModel* ModelOf(Control control) {
  GtkWidget* const widget = Widget(control);
  return GTK_IS_COMBO_BOX(widget) ? gtk_combo_box_get_model(GTK_COMBO_BOX(widget))
                                  : gtk_tree_view_get_model(GTK_TREE_VIEW(widget));
}

// The middle of a widget, or of a row of a list, on the screen.
std::pair<int, int> ScreenPoint(GtkWidget* widget, int x, int y) {
  int left = 0, top = 0;
  gdk_window_get_origin(gtk_widget_get_window(gtk_widget_get_toplevel(widget)), &left, &top);
  gtk_widget_translate_coordinates(widget, gtk_widget_get_toplevel(widget), x, y, &x, &y);
  return {left + x, top + y};
}

void Xdotool(const std::string& arguments) {
  EXPECT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << arguments;
}

std::string IdOf(GtkWindow* window) {
  return std::to_string(gdk_x11_window_get_xid(gtk_widget_get_window(GTK_WIDGET(window))));
}

/// Lets the windows do everything that was asked of them so far.
void Settle() {
  for (int round = 0; round < 3; ++round) OnWindowThread([] { gdk_display_sync(gdk_display_get_default()); });
}

Frame FrameOf(GtkWindow* window) {
  int width = 0, height = 0;
  gtk_window_get_size(window, &width, &height);
  GdkWindow* const realized = gtk_widget_get_window(GTK_WIDGET(window));
  if (realized == nullptr) return {0, 0, width, height};
  GdkRectangle extents{};
  gdk_window_get_frame_extents(realized, &extents);
  return {extents.x, extents.y, extents.x + extents.width, extents.y + extents.height};
}

bool IsWindowVisible(const char* title) {
  GtkWindow* const window = FindWindow(title);
  return window != nullptr && gtk_widget_get_mapped(GTK_WIDGET(window));
}

class GtkDriver final : public DialogDriver {
 public:
  void Click(Control control) override {
    const auto [x, y] = OnWindowThread([&] {
      GtkWidget* const widget = Widget(control);
      return ScreenPoint(widget, gtk_widget_get_allocated_width(widget) / 2,
                         gtk_widget_get_allocated_height(widget) / 2);
    });
    ClickAt(x, y, 1);
  }

  void Choose(Control control, int rank) override {
    OnWindowThread([&] { gtk_combo_box_set_active(GTK_COMBO_BOX(Widget(control)), rank); });
  }

  void Type(Control control, const std::string& text) override {
    OnWindowThread([&] {
      GtkEntry* const entry = EntryOf(control);
      gtk_widget_grab_focus(GTK_WIDGET(entry));
      gtk_entry_set_text(entry, text.c_str());
    });
  }

  void Select(Control list, const qv::Selection& ranks) override {
    OnWindowThread([&] {
      GtkTreeSelection* const selection = gtk_tree_view_get_selection(GTK_TREE_VIEW(Widget(list)));
      gtk_tree_selection_unselect_all(selection);
      for (const std::size_t rank : ranks) {
        GtkTreePath* const path = gtk_tree_path_new_from_indices(static_cast<int>(rank), -1);
        gtk_tree_selection_select_path(selection, path);
        gtk_tree_path_free(path);
      }
    });
  }

  void DoubleClick(Control list, int rank) override {
    OnWindowThread([&] {
      GtkTreePath* const path = gtk_tree_path_new_from_indices(rank, -1);
      gtk_tree_view_scroll_to_cell(GTK_TREE_VIEW(Widget(list)), path, nullptr, FALSE, 0, 0);
      gtk_tree_path_free(path);
    });
    Settle();
    const auto [x, y] = OnWindowThread([&] {
      GtkTreeView* const view = GTK_TREE_VIEW(Widget(list));
      GtkTreePath* const path = gtk_tree_path_new_from_indices(rank, -1);
      GdkRectangle row{};
      gtk_tree_view_get_cell_area(view, path, gtk_tree_view_get_column(view, 0), &row);
      gtk_tree_path_free(path);
      int left = 0, top = 0;
      gtk_tree_view_convert_bin_window_to_widget_coords(view, row.x, row.y, &left, &top);
      return ScreenPoint(GTK_WIDGET(view), left + 20, top + row.height / 2);
    });
    ClickAt(x, y, 2);
  }

  void Press(Key key, Control focus) override {
    const std::string window = OnWindowThread([focus] {
      gtk_widget_grab_focus(Widget(focus));
      return IdOf(FindWindow("Option"));
    });
    Xdotool("windowfocus --sync " + window + " key " + (key == Key::Enter ? "Return" : "Escape"));
    EXPECT_TRUE(WaitUntil([] { return !IsWindowVisible("Option"); })) << "the key did not close the dialog";
  }

  void CloseHeaderWindow() override {
    OnWindowThread([] { gtk_window_close(FindWindow("User Header Items")); });
    Settle();
  }

  std::string DismissMessage() override {
    EXPECT_TRUE(WaitUntil([] { return FindMessage() != nullptr; }));
    const std::string text = OnWindowThread([] {
      char* words = nullptr;
      g_object_get(FindMessage(), "text", &words, nullptr);
      gtk_dialog_response(GTK_DIALOG(FindMessage()), GTK_RESPONSE_OK);
      return Taken(words);
    });
    Settle();
    return text;
  }

  std::string Text(Control control) override {
    return OnWindowThread([&] {
      GtkWidget* const widget = Widget(control);
      if (GTK_IS_BUTTON(widget)) return LabelOf(widget);
      if (!GTK_IS_COMBO_BOX(widget)) return std::string(gtk_entry_get_text(GTK_ENTRY(widget)));
      return Taken(gtk_combo_box_text_get_active_text(GTK_COMBO_BOX_TEXT(widget)));
    });
  }

  std::vector<std::string> Items(Control control) override {
    return OnWindowThread([&] {
      std::vector<std::string> items;
      gtk_tree_model_foreach(
          ModelOf(control),
          [](GtkTreeModel* model, GtkTreePath*, GtkTreeIter* row, gpointer to) -> gboolean {
            char* text = nullptr;
            gtk_tree_model_get(model, row, 0, &text, -1);
            static_cast<std::vector<std::string>*>(to)->push_back(Taken(text));
            return FALSE;
          },
          &items);
      return items;
    });
  }

  qv::Selection Selected(Control list) override {
    return OnWindowThread([&] {
      qv::Selection ranks;
      gtk_tree_selection_selected_foreach(
          gtk_tree_view_get_selection(GTK_TREE_VIEW(Widget(list))),
          [](GtkTreeModel*, GtkTreePath* path, GtkTreeIter*, gpointer to) {
            static_cast<qv::Selection*>(to)->push_back(
                static_cast<std::size_t>(gtk_tree_path_get_indices(path)[0]));
          },
          &ranks);
      return ranks;
    });
  }

  bool IsTicked(Control control) override {
    return OnWindowThread([&] { return gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(Widget(control))); });
  }
  bool IsEnabled(Control control) override {
    return OnWindowThread([&] { return gtk_widget_is_sensitive(Widget(control)); });
  }
  bool IsVisible(Control control) override {
    return OnWindowThread([&] { return gtk_widget_is_visible(Widget(control)); });
  }

  Frame DialogFrame() override {
    return OnWindowThread([] { return FrameOf(FindWindow("Option")); });
  }
  Frame HeaderWindowFrame() override {
    return OnWindowThread([] { return FrameOf(FindWindow("User Header Items")); });
  }
  bool IsOpen() override {
    return OnWindowThread([] { return IsWindowVisible("Option"); });
  }

 private:
  static void ClickAt(int x, int y, int times) {
    // Away first, so that clicks on one place are not counted together.
    Xdotool("mousemove 1 1 click 2 mousemove " + std::to_string(x) + " " + std::to_string(y) +
            " click --repeat " + std::to_string(times) + " --delay 20 1");
    Settle();
  }
};

void UseDialog(const std::function<void(DialogDriver&)>& script) {
  GtkDriver driver;
  if (!WaitUntil([] { return IsWindowVisible("Option"); })) {
    ADD_FAILURE() << "no dialog was shown";
    return;
  }
  Settle();
  script(driver);
  if (driver.IsOpen())
    OnWindowThread([] { gtk_dialog_response(GTK_DIALOG(FindWindow("Option")), GTK_RESPONSE_CANCEL); });
}

}  // namespace

bool RunDialog(const std::function<bool()>& show, const std::function<void(DialogDriver&)>& script,
               std::vector<std::string>& messages) {
  return WithMessagesIn(messages, [&] {
    std::atomic<bool> isUsed = false;
    std::thread person([&] {
      UseDialog(script);
      isUsed = true;
    });
    const bool isOk = show();
    while (!isUsed)
      if (!g_main_context_iteration(nullptr, FALSE)) std::this_thread::sleep_for(1ms);
    person.join();
    return isOk;
  });
}
