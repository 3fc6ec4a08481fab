#include "dialogs/gtk/SideWindows.h"

#include "dialogs/gtk/Icons.h"

#include <algorithm>

namespace qv {

namespace {

constexpr int kGap = 6;
constexpr const char* kIndexKey = "index";
constexpr const char* kRemarkColour = "#FFDD88";  // under black text, whatever the theme

/// What a window manager puts around a window is not known before it is shown; it puts the same around the
/// dialog.
int FrameHeightOf(GtkWindow* dialog) {
  int width = 0, height = 0;
  gtk_window_get_size(dialog, &width, &height);
  return FrameOf(dialog).Height() - height;
}

template <OptionCommand command>
void RunOnClick(GtkWidget* button, FormatOptionCommands& commands) {
  const auto clicked =
      +[](GtkButton*, gpointer given) { static_cast<FormatOptionCommands*>(given)->Run(command); };
  g_signal_connect(button, "clicked", G_CALLBACK(clicked), &commands);
}

GtkWidget* NewSentence(const char* name) {
  GtkWidget* const label = gtk_label_new("");
  gtk_widget_set_name(label, name);
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
  // A window is as high as its texts would be in the narrowest lines that they may have.
  gtk_label_set_width_chars(GTK_LABEL(label), 50);
  return label;
}

std::size_t IndexOf(GtkTreeViewColumn* column) {
  return GPOINTER_TO_SIZE(g_object_get_data(G_OBJECT(column), kIndexKey));
}

/// Themes draw all heads alike and what they like behind them: that of a column in use has the colour of the
/// list's texts, and a remarked one is underlined too.
void DressHead(GtkWidget* head, GtkWidget* list, bool isUsed, bool hasRemark) {
  PangoAttrList* const attributes = pango_attr_list_new();
  GdkRGBA text{};
  gtk_style_context_get_color(gtk_widget_get_style_context(list), GTK_STATE_FLAG_NORMAL, &text);
  const auto part = [](double share) { return static_cast<guint16>(share * 0xFFFF); };
  if (isUsed)
    pango_attr_list_insert(attributes,
                           pango_attr_foreground_new(part(text.red), part(text.green), part(text.blue)));
  if (hasRemark) {
    pango_attr_list_insert(attributes, pango_attr_underline_new(PANGO_UNDERLINE_ERROR));
    pango_attr_list_insert(attributes, pango_attr_background_new(0xFFFF, 0xDDDD, 0x8888));
  }
  gtk_label_set_attributes(GTK_LABEL(head), attributes);
  pango_attr_list_unref(attributes);
}

}  // namespace

WindowFrame FrameOf(GtkWindow* window) {
  GdkRectangle frame{};
  gdk_window_get_frame_extents(gtk_widget_get_window(GTK_WIDGET(window)), &frame);
  return {frame.x, frame.y, frame.x + frame.width, frame.y + frame.height};
}

SideWindow::SideWindow(GtkWindow* dialog, const char* title, std::function<void()> onClose)
    : dialog_(dialog),
      window_(gtk_window_new(GTK_WINDOW_TOPLEVEL)),
      group_(gtk_window_group_new()),
      onClose_(std::move(onClose)) {
  // In a group of its own: the modal dialog keeps the input of its own group's windows to itself.
  gtk_window_group_add_window(group_, Window());
  gtk_window_set_title(Window(), title);
  gtk_window_set_transient_for(Window(), dialog_);
  gtk_window_set_type_hint(Window(), GDK_WINDOW_TYPE_HINT_DIALOG);
  gtk_container_set_border_width(GTK_CONTAINER(window_), kGap);
  g_signal_connect(window_, "delete-event", G_CALLBACK(Closed), this);
  g_signal_connect(window_, "key-press-event", G_CALLBACK(KeyPressed), this);
}

SideWindow::~SideWindow() {
  gtk_widget_destroy(window_);
  g_object_unref(group_);
}

void SideWindow::ShowCaption(const std::string& caption) {
  gtk_window_set_title(Window(), WidgetText(caption).c_str());
}

void SideWindow::Show(bool isShown) {
  if (isShown)
    gtk_window_present(Window());
  else
    gtk_widget_hide(window_);
}

WindowFrame SideWindow::Frame() const {
  if (gtk_widget_get_mapped(window_) != FALSE) return FrameOf(Window());
  int width = 0, height = 0;
  gtk_window_get_size(Window(), &width, &height);
  return {0, 0, width, height + FrameHeightOf(dialog_)};
}

void SideWindow::Place(const WindowFrame& frame) {
  gtk_window_move(Window(), frame.left, frame.top);
  gtk_window_resize(Window(), frame.Width(), frame.Height() - FrameHeightOf(dialog_));
}

gboolean SideWindow::Closed(GtkWidget*, GdkEvent*, gpointer self) {
  static_cast<SideWindow*>(self)->onClose_();
  return TRUE;
}

gboolean SideWindow::KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self) {
  if (event->keyval != GDK_KEY_Escape) return FALSE;
  static_cast<SideWindow*>(self)->onClose_();
  return TRUE;
}

HeaderWindow::HeaderWindow(GtkWindow* dialog, FormatOptionCommands& commands)
    : SideWindow(dialog, "User Header Items", [&commands] { commands.Run(OptionCommand::ToggleHeaders); }),
      list_("headers") {
  gtk_window_set_default_size(Window(), 330, 320);
  GtkWidget* const refresh = NewIconButton(Icon::Refresh, "Refresh");
  GtkWidget* const match = gtk_button_new_with_mnemonic("_Match Items");
  gtk_widget_set_tooltip_text(match, "Makes the sequence of the items that these headings stand for");
  GtkWidget* const buttons = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kGap);
  gtk_box_pack_start(GTK_BOX(buttons), refresh, FALSE, FALSE, 0);
  gtk_box_pack_start(GTK_BOX(buttons), match, FALSE, FALSE, 0);
  GtkWidget* const box = gtk_box_new(GTK_ORIENTATION_VERTICAL, kGap);
  gtk_box_pack_start(GTK_BOX(box), buttons, FALSE, FALSE, 0);
  gtk_box_pack_start(GTK_BOX(box), list_.Widget(), TRUE, TRUE, 0);
  gtk_container_add(GTK_CONTAINER(Window()), box);
  gtk_widget_show_all(box);
  atk_object_set_name(gtk_widget_get_accessible(list_.List()), "User Header Items");
  list_.OnSelect([&commands] { commands.Run(OptionCommand::SelectHeaders); });
  RunOnClick<OptionCommand::RefreshHeaders>(refresh, commands);
  RunOnClick<OptionCommand::MatchHeaders>(match, commands);
}

PreviewWindow::PreviewWindow(GtkWindow* dialog, FormatOptionCommands& commands)
    : SideWindow(dialog, "Preview", [&commands] { commands.Run(OptionCommand::TogglePreview); }),
      store_(gtk_list_store_new(1, G_TYPE_UINT)),
      list_(gtk_tree_view_new_with_model(GTK_TREE_MODEL(store_))),
      summary_(NewSentence("summary")),
      suggestion_(NewSentence("suggestion")),
      apply_(gtk_button_new_with_mnemonic("_Apply")) {
  gtk_window_set_default_size(Window(), 900, 300);
  gtk_tree_view_set_enable_search(List(), FALSE);
  gtk_tree_view_set_grid_lines(List(), GTK_TREE_VIEW_GRID_LINES_VERTICAL);
  gtk_widget_set_has_tooltip(list_, TRUE);
  g_signal_connect(list_, "query-tooltip", G_CALLBACK(TipWanted), this);
  g_signal_connect(gtk_tree_view_get_selection(List()), "changed", G_CALLBACK(RowSelected), this);
  atk_object_set_name(gtk_widget_get_accessible(list_), "Preview");
  RunOnClick<OptionCommand::ApplySuggestion>(apply_, commands);
  gtk_widget_set_valign(apply_, GTK_ALIGN_CENTER);
  GtkWidget* const row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kGap);
  gtk_box_pack_start(GTK_BOX(row), suggestion_, TRUE, TRUE, 0);
  gtk_box_pack_start(GTK_BOX(row), apply_, FALSE, FALSE, 0);

  GtkWidget* const box = gtk_box_new(GTK_ORIENTATION_VERTICAL, kGap);
  gtk_box_pack_start(GTK_BOX(box), NewScrolled(list_), TRUE, TRUE, 0);
  gtk_box_pack_start(GTK_BOX(box), summary_, FALSE, FALSE, 0);
  gtk_box_pack_start(GTK_BOX(box), row, FALSE, FALSE, 0);
  gtk_container_add(GTK_CONTAINER(Window()), box);
  gtk_widget_show_all(box);
}

PreviewWindow::~PreviewWindow() { g_object_unref(store_); }

void PreviewWindow::ShowRows(const Preview& preview) {
  gtk_list_store_clear(store_);
  preview_ = preview;
  ShowColumns();
  for (std::size_t row = 0; row < preview_.rows.size(); ++row)
    gtk_list_store_insert_with_values(store_, nullptr, -1, 0, static_cast<guint>(row), -1);
  gtk_tree_view_columns_autosize(List());
  RowSelected(gtk_tree_view_get_selection(List()), this);
  gtk_label_set_text(GTK_LABEL(suggestion_), WidgetText(preview_.suggestion).c_str());
  gtk_widget_set_visible(suggestion_, preview_.suggestion.empty() ? FALSE : TRUE);
  gtk_widget_set_visible(apply_, preview_.canApply ? TRUE : FALSE);
}

void PreviewWindow::ShowColumns() {
  const std::size_t count = preview_.ShownColumns();
  while (gtk_tree_view_get_n_columns(List()) > count)
    gtk_tree_view_remove_column(List(), gtk_tree_view_get_column(List(), static_cast<gint>(count)));
  for (std::size_t index = gtk_tree_view_get_n_columns(List()); index < count; ++index) AddColumn(index);
  for (std::size_t index = 0; index < count; ++index) {
    GtkWidget* const head =
        gtk_tree_view_column_get_widget(gtk_tree_view_get_column(List(), static_cast<gint>(index)));
    gtk_label_set_text(GTK_LABEL(head), WidgetText(preview_.HeadAt(index)).c_str());
    gtk_widget_set_sensitive(head, preview_.IsGrey(index) ? FALSE : TRUE);
    const std::string remark = preview_.HeadRemarkAt(index);
    gtk_widget_set_tooltip_text(head, remark.empty() ? nullptr : WidgetText(remark).c_str());
    DressHead(head, list_, !preview_.IsGrey(index), !remark.empty());
  }
}

void PreviewWindow::AddColumn(std::size_t index) {
  GtkCellRenderer* const cell = gtk_cell_renderer_text_new();
  GtkTreeViewColumn* const column = gtk_tree_view_column_new();
  gtk_tree_view_column_pack_start(column, cell, TRUE);
  gtk_tree_view_column_set_cell_data_func(column, cell, DrawCell, this, nullptr);
  g_object_set_data(G_OBJECT(column), kIndexKey, GSIZE_TO_POINTER(index));
  gtk_tree_view_column_set_resizable(column, TRUE);
  GtkWidget* const head = gtk_label_new(nullptr);
  gtk_widget_show(head);
  gtk_tree_view_column_set_widget(column, head);
  gtk_tree_view_append_column(List(), column);
}

void PreviewWindow::DrawCell(GtkTreeViewColumn* column, GtkCellRenderer* cell, GtkTreeModel* model,
                             GtkTreeIter* at, gpointer self) {
  guint row = 0;
  gtk_tree_model_get(model, at, 0, &row, -1);
  const Preview& preview = static_cast<PreviewWindow*>(self)->preview_;
  const Preview::RowState state = preview.rows[row].state;
  const std::size_t index = IndexOf(column);
  const bool hasRemark = !preview.RemarkAt(row, index).empty();
  const auto isSet = [](bool is) { return is ? TRUE : FALSE; };
  g_object_set(cell, "text", WidgetText(preview.TextAt(row, index)).c_str(), "single-paragraph-mode", TRUE,
               "sensitive", isSet(!preview.IsGrey(index)), "strikethrough",
               isSet(state == Preview::RowState::LeftOut), "weight",
               state == Preview::RowState::Header ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL,
               "cell-background", hasRemark ? kRemarkColour : nullptr, "foreground",
               hasRemark ? "black" : nullptr, nullptr);
}

void PreviewWindow::RowSelected(GtkTreeSelection* selection, gpointer self) {
  const auto* const window = static_cast<PreviewWindow*>(self);
  GtkTreeIter at;
  std::ptrdiff_t row = -1;
  if (gtk_tree_selection_get_selected(selection, nullptr, &at) != FALSE) {
    guint index = 0;
    gtk_tree_model_get(GTK_TREE_MODEL(window->store_), &at, 0, &index, -1);
    row = index;
  }
  gtk_label_set_text(GTK_LABEL(window->summary_), WidgetText(window->preview_.SentenceAt(row)).c_str());
}

gboolean PreviewWindow::TipWanted(GtkWidget* list, int x, int y, gboolean byKeyboard, GtkTooltip* tip,
                                  gpointer self) {
  GtkTreePath* path = nullptr;
  GtkTreeViewColumn* column = nullptr;
  if (!gtk_tree_view_get_tooltip_context(GTK_TREE_VIEW(list), &x, &y, byKeyboard, nullptr, &path, nullptr))
    return FALSE;
  std::string remark;
  if (gtk_tree_view_get_path_at_pos(GTK_TREE_VIEW(list), x, y, nullptr, &column, nullptr, nullptr) != FALSE) {
    const Preview& preview = static_cast<PreviewWindow*>(self)->preview_;
    const auto row = static_cast<std::size_t>(gtk_tree_path_get_indices(path)[0]);
    remark = preview.RemarkAt(row, IndexOf(column));
    gtk_tooltip_set_text(tip, WidgetText(remark).c_str());
    gtk_tree_view_set_tooltip_cell(GTK_TREE_VIEW(list), tip, path, column, nullptr);
  }
  gtk_tree_path_free(path);
  return remark.empty() ? FALSE : TRUE;
}

}  // namespace qv
