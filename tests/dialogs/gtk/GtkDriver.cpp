// Uses the GTK windows under an X server: widgets are found by their texts, mouse and keyboard go through
// xdotool.

#include "dialogs/gtk/TextListBox.h"
#include "tests/dialogs/DialogDriver.h"

#include <QVAssemblyFile/MessageBox.h>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gdk/gdkx.h>

namespace {

using namespace std::chrono_literals;
using qv::RowPath;

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
    return text != nullptr && std::string(text).starts_with(title) && !GTK_IS_MESSAGE_DIALOG(window);
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
                              "Refresh",
                              "",
                              "",
                              "Show Preview",
                              "Match Items",
                              "Apply"};

bool Bears(GtkWidget* widget, const std::string& text) {
  if (GTK_IS_LABEL(widget))
    return gtk_label_get_mnemonic_widget(GTK_LABEL(widget)) != nullptr &&
           gtk_label_get_text(GTK_LABEL(widget)) == text;
  const char* const spoken = atk_object_get_name(gtk_widget_get_accessible(widget));
  return (GTK_IS_BUTTON(widget) && LabelOf(widget) == text) || (spoken != nullptr && spoken == text) ||
         Taken(gtk_widget_get_tooltip_text(widget)) == text;
}

GtkWindow* WindowOf(Control control) {
  const bool isInHeaderWindow =
      (control >= Control::Refresh && control <= Control::HeaderWindow) || control == Control::Match;
  if (control >= Control::Apply && control <= Control::Suggestion) return FindWindow("Preview");
  return FindWindow(isInHeaderWindow ? "User Header Items" : "Option");
}

GtkWidget* Widget(Control control) {
  GtkWidget* const window = GTK_WIDGET(WindowOf(control));
  if (control == Control::HeaderWindow) return window;
  if (control == Control::Headers || control == Control::Preview)
    return Find(window, [](GtkWidget* widget) { return GTK_IS_TREE_VIEW(widget) != FALSE; });
  if (control >= Control::Summary)
    return Find(window, [control](GtkWidget* widget) {
      static constexpr const char* kNames[] = {"summary", "suggestion", "name-hint"};
      const char* const name = kNames[static_cast<int>(control) - static_cast<int>(Control::Summary)];
      return GTK_IS_LABEL(widget) && std::string(gtk_widget_get_name(widget)) == name;
    });
  const std::string text = kTexts[static_cast<int>(control)];
  GtkWidget* found = Find(window, [&](GtkWidget* widget) { return Bears(widget, text); });
  if (found == nullptr && text.starts_with("Show "))
    found = Find(window, [&](GtkWidget* widget) { return Bears(widget, "Hide" + text.substr(4)); });
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
    const auto [x, y] = OnWindowThread([&] {
      GtkTreeView* const view = ListOf(list);
      GdkRectangle row{};
      gtk_tree_view_get_cell_area(view, path, gtk_tree_view_get_column(view, 0), &row);
      int left = 0, top = 0;
      gtk_tree_view_convert_bin_window_to_widget_coords(view, row.x, row.y, &left, &top);
      return ScreenPoint(GTK_WIDGET(view), left + 20, top + row.height / 2);
    });
    ClickAt(x, y, 1, 2);
  }

  void Drag(Control from, int entry, Control to, int place) override {
    Select(from, {static_cast<std::size_t>(entry)});
    const auto point = [](Control list, int row) {
      return OnWindowThread([=] {
        GtkTreeView* const view = ListOf(list);
        GdkRectangle cell{};
        const int rows = gtk_tree_model_iter_n_children(gtk_tree_view_get_model(view), nullptr);
        gtk_tree_view_get_background_area(view, RowPath(static_cast<std::size_t>(row < 0 ? rows - 1 : row)),
                                          gtk_tree_view_get_column(view, 0), &cell);
        int left = 0, top = 0;
        gtk_tree_view_convert_bin_window_to_widget_coords(view, cell.x, cell.y, &left, &top);
        return ScreenPoint(GTK_WIDGET(view), left + 30, top + (row < 0 ? cell.height * 2 : cell.height / 5));
      });
    };
    const auto [x, y] = point(from, entry);
    const auto [toX, toY] = point(to, place);
    const auto move = [](int left, int top) {
      Xdotool("mousemove " + std::to_string(left) + " " + std::to_string(top));
      std::this_thread::sleep_for(50ms);
    };
    move(x, y);
    Xdotool("mousedown 1");
    for (const int step : {10, 20, 30}) move(x + step, y + 2);
    for (const int step : {6, 3, 0}) move(toX + step, toY);
    Xdotool("mouseup 1");
    std::this_thread::sleep_for(200ms);
    Settle();
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
      GdkRectangle cell{};
      gtk_tree_view_get_cell_area(list, RowPath(static_cast<std::size_t>(row)), at, &cell);
      int left = 0, top = 0;
      gtk_tree_view_convert_bin_window_to_widget_coords(list, cell.x, cell.y, &left, &top);
      return ScreenPoint(GTK_WIDGET(list), left + cell.width / 2, top + cell.height / 2);
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

  Frame DialogFrame() override {
    return OnWindowThread([] { return FrameOf(FindWindow("Option")); });
  }
  Frame PreviewFrame() override {
    return OnWindowThread([] { return FrameOf(FindWindow("Preview")); });
  }
  Frame HeaderWindowFrame() override {
    return OnWindowThread([] { return FrameOf(FindWindow("User Header Items")); });
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
