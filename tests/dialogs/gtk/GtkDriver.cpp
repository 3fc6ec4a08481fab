// Uses the GTK windows under an X server: widgets are found by their texts, mouse and keyboard go through
// xdotool.

#include "dialogs/gtk/TextListBox.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/gtk/GtkWidgets.h"

#include <QVAssemblyFile/MessageBox.h>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gdk/gdkx.h>

namespace {

using namespace std::chrono_literals;
using qv::RowPath;

GtkEntry* EntryOf(Control control) {
  GtkWidget* const widget = Widget(control);
  return GTK_ENTRY(GTK_IS_COMBO_BOX(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : widget);
}

GtkTreeModel* ModelOf(Control control) {
  GtkWidget* const widget = Widget(control);
  return GTK_IS_COMBO_BOX(widget) ? gtk_combo_box_get_model(GTK_COMBO_BOX(widget))
                                  : gtk_tree_view_get_model(GTK_TREE_VIEW(widget));
}

/// Types a text; quotation marks and the like are the shell's otherwise.
void XdotoolType(const std::string& text) {
  std::string quoted;
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  Xdotool("type --delay 2 -- '" + quoted + "'");
}

std::string IdOf(GtkWindow* window) {
  return std::to_string(gdk_x11_window_get_xid(gtk_widget_get_window(GTK_WIDGET(window))));
}

GtkTreeView* ListOf(Control control) { return GTK_TREE_VIEW(Widget(control)); }

/// A key as xdotool names it: "Alt+Up", "Ctrl+Z".
std::string KeySymbol(std::string key) {
  static const std::pair<const char*, const char*> kNames[] = {
      {"Enter", "Return"}, {"Space", "space"}, {"PageDown", "Next"}};
  for (const auto& [name, symbol] : kNames)
    if (key.ends_with(name)) return key.replace(key.size() - std::strlen(name), std::string::npos, symbol);
  if (key.size() > 2 && key[key.size() - 2] == '+') key.back() = static_cast<char>(std::tolower(key.back()));
  return key;
}

Frame FrameOfWindow(GtkWindow* window) {
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

template <class Value>
Value PropertyOf(gpointer object, const char* name) {
  Value value{};
  g_object_get(object, name, &value, nullptr);
  return value;
}

SeenCell HeadOf(GtkTreeViewColumn* column) {
  GtkWidget* const head = gtk_tree_view_column_get_widget(column);
  return {gtk_label_get_text(GTK_LABEL(head)), gtk_widget_get_sensitive(head) == FALSE, false, false,
          gtk_widget_get_has_tooltip(head) != FALSE};
}

// As the list sets its renderer before it draws the cell.
SeenCell CellOf(GtkTreeView* list, GtkTreeViewColumn* column, int row) {
  GtkTreeModel* const model = gtk_tree_view_get_model(list);
  GtkTreeIter at;
  gtk_tree_model_iter_nth_child(model, &at, nullptr, row);
  gtk_tree_view_column_cell_set_cell_data(column, model, &at, FALSE, FALSE);
  GList* const cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(column));
  gpointer const cell = cells->data;
  g_list_free(cells);
  return {Taken(PropertyOf<char*>(cell, "text")), PropertyOf<gboolean>(cell, "sensitive") == FALSE,
          PropertyOf<gboolean>(cell, "strikethrough") != FALSE,
          PropertyOf<int>(cell, "weight") == PANGO_WEIGHT_BOLD,
          PropertyOf<gboolean>(cell, "cell-background-set") != FALSE};
}

/// The text of the tool tip on the screen.
std::string ShownTip() {
  GtkWindow* const tip = FindWindowThat([](GtkWindow* window) {
    return gtk_window_get_type_hint(window) == GDK_WINDOW_TYPE_HINT_TOOLTIP &&
           gtk_widget_get_mapped(GTK_WIDGET(window)) != FALSE;
  });
  if (tip == nullptr) return {};
  GtkWidget* const label =
      Find(GTK_WIDGET(tip), [](GtkWidget* widget) { return GTK_IS_LABEL(widget) != FALSE; });
  return gtk_label_get_text(GTK_LABEL(label));
}

/// The entry of the menu that is open; null while there is none.
GtkWidget* FindDeleteEntry() {
  GtkWidget* found = nullptr;
  FindWindowThat([&](GtkWindow* window) {
    if (gtk_widget_get_mapped(GTK_WIDGET(window)) != FALSE)
      if (GtkWidget* const entry = Find(GTK_WIDGET(window), [](GtkWidget* widget) {
            return GTK_IS_MENU_ITEM(widget) &&
                   std::string(gtk_menu_item_get_label(GTK_MENU_ITEM(widget))) == "Delete _Format...";
          }))
        found = entry;
    return false;
  });
  return found;
}

/// A place in a cell of a list, on the screen: so far to the right, so many halves of its height down.
std::pair<int, int> CellPoint(GtkTreeView* list, int row, int column, int right, double halves) {
  GdkRectangle cell{};
  gtk_tree_view_get_background_area(list, RowPath(static_cast<std::size_t>(row)),
                                    gtk_tree_view_get_column(list, column), &cell);
  int left = 0, top = 0;
  gtk_tree_view_convert_bin_window_to_widget_coords(list, cell.x, cell.y, &left, &top);
  return ScreenPoint(GTK_WIDGET(list), left + right, top + static_cast<int>(cell.height * halves / 2));
}

class GtkDriver final : public DialogDriver {
 public:
  void Click(Control control) override {
    const auto [x, y] = Middle(control);
    ClickAt(x, y, 1, 1);
  }

  void Choose(Control control, int index) override {
    OnWindowThread([&] { gtk_combo_box_set_active(GTK_COMBO_BOX(Widget(control)), index); });
  }

  void Type(Control control, const std::string& text) override {
    Focus(control);
    const bool isList = OnWindowThread([control] { return GTK_IS_TREE_VIEW(Widget(control)) != FALSE; });
    if (!isList) OnWindowThread([&] { gtk_editable_select_region(GTK_EDITABLE(EntryOf(control)), 0, -1); });
    // Characters that the keyboard does not have come from an input method, as a whole.
    const bool isOnKeyboard =
        std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
    if (text.empty())
      Xdotool("key BackSpace");
    else if (isOnKeyboard)
      XdotoolType(text);
    else
      OnWindowThread([&] {
        gtk_editable_delete_selection(GTK_EDITABLE(EntryOf(control)));
        g_signal_emit_by_name(EntryOf(control), "insert-at-cursor", text.c_str());
      });
    Settle();
  }

  void Select(Control list, const qv::Selection& indexes) override {
    OnWindowThread([&] {
      GtkTreeSelection* const selection = gtk_tree_view_get_selection(ListOf(list));
      gtk_tree_selection_unselect_all(selection);
      for (const std::size_t index : indexes) gtk_tree_selection_select_path(selection, RowPath(index));
    });
  }

  void DoubleClick(Control list, int index) override {
    const RowPath path(static_cast<std::size_t>(index));
    OnWindowThread([&] { gtk_tree_view_scroll_to_cell(ListOf(list), path, nullptr, FALSE, 0, 0); });
    Settle();
    const auto [x, y] = OnWindowThread([&] { return CellPoint(ListOf(list), index, 0, 20, 1); });
    ClickAt(x, y, 1, 2);
  }

  int Drag(Control from, const qv::Selection& entries, Control to, int place) override {
    Select(from, entries);
    const auto point = [](Control list, int row) {
      return OnWindowThread([=] {
        GtkTreeView* const view = ListOf(list);
        const int rows = gtk_tree_model_iter_n_children(gtk_tree_view_get_model(view), nullptr);
        if (rows == 0) return ScreenPoint(GTK_WIDGET(view), 30, 10);
        return row < 0 ? CellPoint(view, rows - 1, 0, 30, 4) : CellPoint(view, row, 0, 30, 0.4);
      });
    };
    const auto [x, y] = point(from, static_cast<int>(entries.front()));
    const auto [toX, toY] = point(to, place);
    const auto move = [](int left, int top) {
      Xdotool("mousemove " + std::to_string(left) + " " + std::to_string(top));
      std::this_thread::sleep_for(50ms);
    };
    move(x, y);
    Xdotool("mousedown 1");
    for (const int step : {10, 20, 30}) move(x + step, y + 2);
    for (const int step : {6, 3, 0}) move(toX + step, toY);
    Settle();
    const int marked = OnWindowThread([to] {
      GtkTreePath* path = nullptr;
      GtkTreeViewDropPosition position = GTK_TREE_VIEW_DROP_BEFORE;
      gtk_tree_view_get_drag_dest_row(ListOf(to), &path, &position);
      const int row = path == nullptr ? -1 : gtk_tree_path_get_indices(path)[0];
      gtk_tree_path_free(path);
      return row + (row >= 0 && position == GTK_TREE_VIEW_DROP_AFTER ? 1 : 0);
    });
    Xdotool("mouseup 1");
    std::this_thread::sleep_for(200ms);
    Settle();
    return marked;
  }

  void Press(Control focus, const std::string& key) override {
    Focus(focus);
    Xdotool("key " + KeySymbol(key));
    Settle();
  }

  void TurnWheel(Control control) override {
    const auto [x, y] = Middle(control);
    ClickAt(x, y, 5, 1);
  }

  void CloseHeaderWindow() override {
    OnWindowThread([] { gtk_window_close(FindWindow("User Header Items")); });
    Settle();
  }

  void Rest() override {
    std::this_thread::sleep_for(std::chrono::milliseconds(qv::kPause + 50));
    Settle();
  }

  std::string DeleteFormat(bool isSure) override {
    Press(Control::FormatName, "Menu");
    EXPECT_TRUE(WaitUntil([] { return OnWindowThread(FindDeleteEntry) != nullptr; }));
    const auto [x, y] = OnWindowThread([] { return ScreenPoint(FindDeleteEntry(), 10, 10); });
    ClickAt(x, y, 1, 1);
    return Answer(isSure ? GTK_RESPONSE_YES : GTK_RESPONSE_NO);
  }

  std::string DismissMessage() override { return Answer(GTK_RESPONSE_OK); }

  static std::string Answer(int response) {
    EXPECT_TRUE(WaitUntil([] { return OnWindowThread([] { return FindMessage() != nullptr; }); }));
    const std::string text = OnWindowThread([response] {
      char* words = nullptr;
      g_object_get(FindMessage(), "text", &words, nullptr);
      gtk_dialog_response(GTK_DIALOG(FindMessage()), response);
      return Taken(words);
    });
    Settle();
    return text;
  }

  std::string Text(Control control) override {
    return OnWindowThread([&] {
      GtkWidget* const widget = Widget(control);
      if (GTK_IS_WINDOW(widget)) return std::string(gtk_window_get_title(GTK_WINDOW(widget)));
      if (GTK_IS_BUTTON(widget)) return LabelOf(widget);
      if (GTK_IS_LABEL(widget)) return std::string(gtk_label_get_text(GTK_LABEL(widget)));
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
      qv::Selection indexes;
      gtk_tree_selection_selected_foreach(
          gtk_tree_view_get_selection(ListOf(list)),
          [](GtkTreeModel*, GtkTreePath* path, GtkTreeIter*, gpointer to) {
            static_cast<qv::Selection*>(to)->push_back(
                static_cast<std::size_t>(gtk_tree_path_get_indices(path)[0]));
          },
          &indexes);
      return indexes;
    });
  }

  qv::Selection Grey() override {
    return OnWindowThread([&] {
      qv::Selection grey;
      GtkTreeModel* const model = ModelOf(Control::PlanItems);
      for (int index = 0; index < gtk_tree_model_iter_n_children(model, nullptr); ++index) {
        GtkTreeIter row;
        gboolean isBlack = TRUE;
        gtk_tree_model_iter_nth_child(model, &row, nullptr, index);
        gtk_tree_model_get(model, &row, 1, &isBlack, -1);
        if (isBlack == FALSE) grey.push_back(static_cast<std::size_t>(index));
      }
      return grey;
    });
  }

  int Cursor(Control list) override {
    return OnWindowThread([&] {
      GtkTreePath* path = nullptr;
      gtk_tree_view_get_cursor(ListOf(list), &path, nullptr);
      const int index = path == nullptr ? -1 : gtk_tree_path_get_indices(path)[0];
      gtk_tree_path_free(path);
      return index;
    });
  }

  bool IsInSight(Control list, int index) override {
    return OnWindowThread([&] {
      GtkTreeView* const view = ListOf(list);
      GdkRectangle row{}, seen{};
      gtk_tree_view_get_background_area(view, RowPath(static_cast<std::size_t>(index)),
                                        gtk_tree_view_get_column(view, 0), &row);
      gtk_tree_view_get_visible_rect(view, &seen);
      return row.y >= 0 && row.y + row.height <= seen.height;
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

  std::vector<SeenCell> PreviewRow(int row) override {
    return OnWindowThread([row] {
      GtkTreeView* const list = ListOf(Control::Preview);
      std::vector<SeenCell> cells;
      for (guint index = 0; index < gtk_tree_view_get_n_columns(list); ++index) {
        GtkTreeViewColumn* const column = gtk_tree_view_get_column(list, static_cast<gint>(index));
        cells.push_back(row < 0 ? HeadOf(column) : CellOf(list, column, row));
      }
      return cells;
    });
  }

  std::string PreviewTip(int row, int column) override {
    const auto [x, y] = OnWindowThread([=] {
      GtkTreeView* const list = ListOf(Control::Preview);
      GtkTreeViewColumn* const at = gtk_tree_view_get_column(list, column);
      if (row < 0) return ScreenPoint(gtk_tree_view_column_get_button(at), 10, 10);
      return CellPoint(list, row, column, gtk_tree_view_column_get_width(at) / 2, 1);
    });
    // A tool tip comes when the mouse has come to rest.
    Xdotool("mousemove 1 1");
    std::this_thread::sleep_for(200ms);
    Xdotool("mousemove " + std::to_string(x - 3) + " " + std::to_string(y) + " mousemove " +
            std::to_string(x) + " " + std::to_string(y));
    std::string tip;
    WaitUntil([&] { return !(tip = OnWindowThread(ShownTip)).empty(); });
    return tip;
  }

  Frame FrameOf(ControlWindow window) override {
    return OnWindowThread([window] { return FrameOfWindow(FindWindow(TitleOf(window))); });
  }
  bool IsOpen() override {
    return OnWindowThread([] { return IsWindowVisible("Option"); });
  }

 private:
  static std::pair<int, int> Middle(Control control) {
    return OnWindowThread([control] {
      GtkWidget* const widget = Widget(control);
      return ScreenPoint(widget, gtk_widget_get_allocated_width(widget) / 2,
                         gtk_widget_get_allocated_height(widget) / 2);
    });
  }

  static void ClickAt(int x, int y, int button, int times) {
    // Away first, so that clicks on one place are not counted together.
    Xdotool("mousemove 1 1 click 2 mousemove " + std::to_string(x) + " " + std::to_string(y) +
            " click --repeat " + std::to_string(times) + " --delay 20 " + std::to_string(button));
    Settle();
  }

  // Where the keyboard is already, it stays: what was typed into a list is still looked for.
  static void Focus(Control control) {
    const std::string window = OnWindowThread([control] {
      GtkWidget* const widget = Widget(control);
      const bool isName = GTK_IS_COMBO_BOX(widget) && gtk_combo_box_get_has_entry(GTK_COMBO_BOX(widget));
      GtkWidget* const focus = isName ? GTK_WIDGET(EntryOf(control)) : widget;
      if (!gtk_widget_has_focus(focus) || GTK_IS_ENTRY(widget)) gtk_widget_grab_focus(widget);
      return gtk_window_is_active(WindowOf(control)) ? std::string() : IdOf(WindowOf(control));
    });
    if (!window.empty()) Xdotool("windowfocus --sync " + window);
    Settle();
  }
};

void UseDialog(const std::function<void(DialogDriver&)>& script) {
  GtkDriver driver;
  if (!WaitUntil([&driver] { return driver.IsOpen(); })) {
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
