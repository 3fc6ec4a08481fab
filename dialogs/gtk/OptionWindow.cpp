#include "dialogs/gtk/OptionWindow.h"

#include "dialogs/gtk/Icons.h"
#include "dialogs/gtk/WidgetText.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace qv {

namespace {

constexpr const char* kCommandKey = "command";
constexpr int kGap = 6;
constexpr guint kUpMnemonic = GDK_KEY_u;
constexpr guint kDownMnemonic = GDK_KEY_w;

constexpr const char* kDelimiterLabels[] = {"_Tab", "S_emicolon", "_Comma", "S_pace", "_Other"};
constexpr const char* kQualifiers[] = {"Double quotation marks", "Single quotation marks", "None"};

GtkWidget* NewRow() { return gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kGap); }
GtkWidget* NewColumn() { return gtk_box_new(GTK_ORIENTATION_VERTICAL, kGap); }

void Pack(GtkWidget* box, GtkWidget* widget) { gtk_box_pack_start(GTK_BOX(box), widget, FALSE, FALSE, 0); }
void PackWide(GtkWidget* box, GtkWidget* widget) { gtk_box_pack_start(GTK_BOX(box), widget, TRUE, TRUE, 0); }

GtkWidget* NewLabelFor(GtkWidget* widget, const char* text) {
  GtkWidget* const label = gtk_label_new_with_mnemonic(text);
  gtk_label_set_mnemonic_widget(GTK_LABEL(label), widget);
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  return label;
}

GtkWidget* NewGroup(const char* title, GtkWidget* content) {
  GtkWidget* const group = gtk_frame_new(title);
  gtk_container_set_border_width(GTK_CONTAINER(content), kGap);
  gtk_container_add(GTK_CONTAINER(group), content);
  return group;
}

bool IsActive(GtkWidget* box) { return gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(box)) != FALSE; }
void SetActive(GtkWidget* box, bool isActive) {
  gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(box), isActive ? TRUE : FALSE);
}

std::string TextOf(GtkEntry* entry, const ShownText<std::string>& shown) {
  std::string text = gtk_entry_get_text(entry);
  return shown.IsShown(text) ? shown.Text() : text;
}

// The arrows stay within their range; a line typed beyond it, or read from a file, is taken as it is.
void Widen(GtkSpinButton* spin, int value) {
  double low = 0, high = 0;
  gtk_spin_button_get_range(spin, &low, &high);
  gtk_spin_button_set_range(spin, std::min<double>(low, value), std::max<double>(high, value));
}

gint WidenForInput(GtkSpinButton* spin, gdouble* value, gpointer) {
  const char* const text = gtk_entry_get_text(GTK_ENTRY(spin));
  char* end = nullptr;
  errno = 0;
  const long line = std::strtol(text, &end, 10);
  if (end == text || *end != '\0') return GTK_INPUT_ERROR;
  const int kept = static_cast<int>(std::clamp<long>(line, INT_MIN, INT_MAX));
  Widen(spin, kept);
  *value = kept;
  return TRUE;
}

void CommandGiven(GtkWidget* widget, gpointer commands) {
  const int command = GPOINTER_TO_INT(g_object_get_data(G_OBJECT(widget), kCommandKey));
  static_cast<FormatOptionCommands*>(commands)->Run(static_cast<OptionCommand>(command));
}

}  // namespace

OptionWindow::OptionWindow(FormatOptionCommands& commands)
    : commands_(commands),
      dialog_(gtk_dialog_new()),
      plan_("plan"),
      sequence_("sequence"),
      headers_(
          GTK_WINDOW(dialog_), [this] { commands_.Run(OptionCommand::RefreshHeaders); },
          [this] { commands_.Run(OptionCommand::ToggleHeaders); }) {
  plan_.OnDoubleClick([this] { commands_.Run(OptionCommand::Add); });
  sequence_.OnDoubleClick([this] { commands_.Run(OptionCommand::Delete); });
  sequence_.OnSelect([this] { commands_.Run(OptionCommand::SelectSequence); });
  Build();
}

OptionWindow::~OptionWindow() {
  gtk_window_remove_mnemonic(GTK_WINDOW(dialog_), kUpMnemonic, up_);
  gtk_window_remove_mnemonic(GTK_WINDOW(dialog_), kDownMnemonic, down_);
  gtk_widget_destroy(dialog_);
}

bool OptionWindow::Run() {
  commands_.Open(*this);
  gtk_widget_show(dialog_);
  while (isOpen_) {
    const bool isOk = gtk_dialog_run(GTK_DIALOG(dialog_)) == GTK_RESPONSE_OK;
    commands_.Run(isOk ? OptionCommand::Ok : OptionCommand::Cancel);
  }
  return isOk_;
}

void OptionWindow::RunOnSignal(GtkWidget* widget, const char* signal, OptionCommand command) {
  g_object_set_data(G_OBJECT(widget), kCommandKey, GINT_TO_POINTER(static_cast<int>(command)));
  g_signal_connect(widget, signal, G_CALLBACK(CommandGiven), &commands_);
}

GtkWidget* OptionWindow::NewCommandButton(const char* label, OptionCommand command) {
  GtkWidget* const button = gtk_button_new_with_mnemonic(label);
  RunOnSignal(button, "clicked", command);
  return button;
}

GtkWidget* OptionWindow::NewCommandBox(const char* label, OptionCommand command) {
  GtkWidget* const box = gtk_check_button_new_with_mnemonic(label);
  RunOnSignal(box, "clicked", command);
  return box;
}

void OptionWindow::Build() {
  gtk_window_set_title(GTK_WINDOW(dialog_), "Option");
  GtkWidget* const content = gtk_dialog_get_content_area(GTK_DIALOG(dialog_));
  gtk_container_set_border_width(GTK_CONTAINER(content), 2 * kGap);
  gtk_box_set_spacing(GTK_BOX(content), 2 * kGap);

  Pack(content, BuildNameRow());
  Pack(content, BuildReadingRow());
  GtkWidget* const groups = NewRow();
  PackWide(groups, BuildDelimiters());
  PackWide(groups, BuildPartName());
  Pack(content, groups);
  treatAsOne_ = gtk_check_button_new_with_mnemonic("Treat consecuti_ve delimiters as one");
  Pack(content, treatAsOne_);
  PackWide(content, BuildLists());
  toggleHeaders_ = NewCommandButton("Show _Header", OptionCommand::ToggleHeaders);
  gtk_widget_set_halign(toggleHeaders_, GTK_ALIGN_START);
  Pack(content, toggleHeaders_);
  gtk_widget_show_all(content);
  gtk_widget_set_visible(toggleHeaders_, commands_.OffersHeaders());

  gtk_dialog_add_button(GTK_DIALOG(dialog_), "OK", GTK_RESPONSE_OK);
  gtk_dialog_add_button(GTK_DIALOG(dialog_), "Cancel", GTK_RESPONSE_CANCEL);
  gtk_dialog_set_default_response(GTK_DIALOG(dialog_), GTK_RESPONSE_OK);
  g_signal_connect(dialog_, "key-press-event", G_CALLBACK(KeyPressed), this);
  gtk_window_add_mnemonic(GTK_WINDOW(dialog_), kUpMnemonic, up_);
  gtk_window_add_mnemonic(GTK_WINDOW(dialog_), kDownMnemonic, down_);
}

// Enter is OK everywhere but on another button, as in the dialogs of other systems; here a box would toggle
// and a list would take the double click's command.
gboolean OptionWindow::KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self) {
  if (event->keyval != GDK_KEY_Return && event->keyval != GDK_KEY_KP_Enter) return FALSE;
  GtkWindow* const window = GTK_WINDOW(static_cast<OptionWindow*>(self)->dialog_);
  GtkWidget* const focus = gtk_window_get_focus(window);
  if (!GTK_IS_CHECK_BUTTON(focus) && !GTK_IS_TREE_VIEW(focus)) return FALSE;
  return gtk_window_activate_default(window);
}

GtkWidget* OptionWindow::BuildNameRow() {
  names_ = gtk_combo_box_text_new_with_entry();
  gtk_entry_set_activates_default(NameEntry(), TRUE);
  g_signal_connect(names_, "changed", G_CALLBACK(FormatChanged), this);
  default_ = NewCommandBox("Set as default _form", OptionCommand::SetAsDefault);
  GtkWidget* const row = NewRow();
  Pack(row, NewLabelFor(names_, "Format _Name"));
  PackWide(row, names_);
  Pack(row, default_);
  return row;
}

GtkWidget* OptionWindow::BuildReadingRow() {
  startLine_ = gtk_spin_button_new_with_range(kFirstStartLine, kLastStartLine, 1);
  gtk_entry_set_activates_default(GTK_ENTRY(startLine_), TRUE);
  g_signal_connect(startLine_, "input", G_CALLBACK(WidenForInput), nullptr);
  qualifier_ = gtk_combo_box_text_new();
  for (const char* const item : kQualifiers)
    gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(qualifier_), item);
  GtkWidget* const row = NewRow();
  Pack(row, NewLabelFor(startLine_, "Starting _reading line:"));
  Pack(row, startLine_);
  GtkWidget* const label = NewLabelFor(qualifier_, "Text _qualifier:");
  gtk_widget_set_margin_start(label, 2 * kGap);
  Pack(row, label);
  PackWide(row, qualifier_);
  return row;
}

GtkWidget* OptionWindow::BuildDelimiters() {
  for (std::size_t box = 0; box < delimiters_.size(); ++box)
    delimiters_[box] = gtk_check_button_new_with_mnemonic(kDelimiterLabels[box]);
  GtkWidget* const other = delimiters_[static_cast<std::size_t>(DelimiterBox::Other)];
  RunOnSignal(other, "toggled", OptionCommand::TickOther);
  otherDelimiters_ = gtk_entry_new();
  gtk_entry_set_width_chars(GTK_ENTRY(otherDelimiters_), 6);
  gtk_entry_set_activates_default(GTK_ENTRY(otherDelimiters_), TRUE);
  atk_object_set_name(gtk_widget_get_accessible(otherDelimiters_), "Other delimiters");

  GtkWidget* const grid = gtk_grid_new();
  gtk_grid_set_row_spacing(GTK_GRID(grid), kGap);
  gtk_grid_set_column_spacing(GTK_GRID(grid), 2 * kGap);
  for (int box = 0; box < 3; ++box)
    gtk_grid_attach(GTK_GRID(grid), delimiters_[static_cast<std::size_t>(box)], box, 0, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), delimiters_[static_cast<std::size_t>(DelimiterBox::Space)], 0, 1, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), other, 1, 1, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), otherDelimiters_, 2, 1, 1, 1);
  return NewGroup("Delimiters", grid);
}

GtkWidget* OptionWindow::BuildPartName() {
  nameOnly_ = gtk_radio_button_new_with_mnemonic(nullptr, "Part Name Onl_y");
  nameWithPath_ = gtk_radio_button_new_with_mnemonic_from_widget(GTK_RADIO_BUTTON(nameOnly_),
                                                                 "Part Name With Fu_ll Path");
  GtkWidget* const column = NewColumn();
  Pack(column, nameOnly_);
  Pack(column, nameWithPath_);
  return NewGroup("Part Name", column);
}

GtkWidget* OptionWindow::BuildLists() {
  GtkWidget* const add = NewCommandButton("_Add  >  ", OptionCommand::Add);
  delete_ = NewCommandButton("<  _Delete", OptionCommand::Delete);
  up_ = NewIconButton(Icon::Up, "Up");
  down_ = NewIconButton(Icon::Down, "Down");
  RunOnSignal(up_, "clicked", OptionCommand::MoveUp);
  RunOnSignal(down_, "clicked", OptionCommand::MoveDown);
  GtkWidget* const between = NewColumn();
  GtkWidget* const beside = NewColumn();
  for (GtkWidget* const buttons : {between, beside}) gtk_widget_set_valign(buttons, GTK_ALIGN_CENTER);
  Pack(between, add);
  Pack(between, delete_);
  Pack(beside, up_);
  Pack(beside, down_);

  GtkWidget* const grid = gtk_grid_new();
  gtk_grid_set_row_spacing(GTK_GRID(grid), kGap / 2);
  gtk_grid_set_column_spacing(GTK_GRID(grid), kGap);
  gtk_grid_attach(GTK_GRID(grid), NewLabelFor(plan_.List(), "Plan _items"), 0, 0, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), NewLabelFor(sequence_.List(), "Item and _sequence of one record"), 2, 0, 1,
                  1);
  gtk_grid_attach(GTK_GRID(grid), plan_.Widget(), 0, 1, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), between, 1, 1, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), sequence_.Widget(), 2, 1, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), beside, 3, 1, 1, 1);
  for (GtkWidget* const list : {plan_.Widget(), sequence_.Widget()}) {
    gtk_widget_set_size_request(list, 220, 260);
    gtk_widget_set_hexpand(list, TRUE);
    gtk_widget_set_vexpand(list, TRUE);
  }
  return grid;
}

GtkEntry* OptionWindow::NameEntry() const { return GTK_ENTRY(gtk_bin_get_child(GTK_BIN(names_))); }

// Typing changes the combo box too, but then no row of its list is active.
void OptionWindow::FormatChanged(GtkComboBox* names, gpointer self) {
  auto* const window = static_cast<OptionWindow*>(self);
  const int rank = gtk_combo_box_get_active(names);
  if (rank >= 0) window->commands_.ChooseFormat(static_cast<std::size_t>(rank));
}

bool OptionWindow::TakeControls(OptionControls& controls, std::string&) {
  gtk_spin_button_update(GTK_SPIN_BUTTON(startLine_));
  controls.FormatName = TextOf(NameEntry(), shownName_);
  controls.SetAsDefault = IsActive(default_);
  controls.StartLine = gtk_spin_button_get_value_as_int(GTK_SPIN_BUTTON(startLine_));
  const int qualifier = gtk_combo_box_get_active(GTK_COMBO_BOX(qualifier_));
  if (qualifier >= 0) controls.Qualifier = qualifier;
  for (std::size_t box = 0; box < delimiters_.size(); ++box)
    controls.Delimiters[box] = IsActive(delimiters_[box]);
  controls.OtherDelimiters = TextOf(GTK_ENTRY(otherDelimiters_), shownOther_);
  controls.PartName = IsActive(nameOnly_) ? PartNameMode::NameOnly : PartNameMode::NameWithFullPath;
  controls.TreatAsOne = IsActive(treatAsOne_);
  return true;
}

void OptionWindow::ShowControls(const OptionControls& controls) {
  const auto rank = std::find(formatNames_.begin(), formatNames_.end(), controls.FormatName);
  if (rank != formatNames_.end())
    gtk_combo_box_set_active(GTK_COMBO_BOX(names_), static_cast<int>(rank - formatNames_.begin()));
  gtk_entry_set_text(NameEntry(),
                     shownName_.Show(controls.FormatName, WidgetText(controls.FormatName)).c_str());
  SetActive(default_, controls.SetAsDefault);
  GtkSpinButton* const startLine = GTK_SPIN_BUTTON(startLine_);
  gtk_spin_button_set_range(startLine, kFirstStartLine, kLastStartLine);
  Widen(startLine, controls.StartLine);
  gtk_spin_button_set_value(startLine, controls.StartLine);
  const bool isListed = controls.Qualifier >= 0 && controls.Qualifier < kQualifierCount;
  gtk_combo_box_set_active(GTK_COMBO_BOX(qualifier_), isListed ? controls.Qualifier : -1);
  for (std::size_t box = 0; box < delimiters_.size(); ++box)
    SetActive(delimiters_[box], controls.Delimiters[box]);
  gtk_entry_set_text(
      GTK_ENTRY(otherDelimiters_),
      shownOther_.Show(controls.OtherDelimiters, WidgetText(controls.OtherDelimiters)).c_str());
  SetActive(controls.PartName == PartNameMode::NameOnly ? nameOnly_ : nameWithPath_, true);
  SetActive(treatAsOne_, controls.TreatAsOne);
}

void OptionWindow::ShowFormatNames(const std::vector<std::string>& names) {
  formatNames_ = names;
  gtk_combo_box_text_remove_all(GTK_COMBO_BOX_TEXT(names_));
  for (const std::string& name : names)
    gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(names_), WidgetText(name).c_str());
}

void OptionWindow::ShowSequence(const std::vector<std::string>& items, const Selection& selection) {
  sequence_.Show(items);
  sequence_.Select(selection);
}

void OptionWindow::Enable(const OptionEnabling& enabling) {
  gtk_widget_set_sensitive(otherDelimiters_, enabling.OtherDelimiters);
  gtk_widget_set_sensitive(sequence_.List(), enabling.Sequence);
  gtk_widget_set_sensitive(delete_, enabling.Delete);
  gtk_widget_set_sensitive(up_, enabling.Up);
  gtk_widget_set_sensitive(down_, enabling.Down);
}

void OptionWindow::ShowHeaderWindow(bool isShown) {
  gtk_button_set_label(GTK_BUTTON(toggleHeaders_), isShown ? "Hide _Header" : "Show _Header");
  if (isShown)
    headers_.ShowBeside();
  else
    headers_.Hide();
}

void OptionWindow::Tell(const std::string& sentence) {
  GtkWidget* const message =
      gtk_message_dialog_new(GTK_WINDOW(dialog_), GTK_DIALOG_MODAL, GTK_MESSAGE_WARNING, GTK_BUTTONS_OK, "%s",
                             WidgetText(sentence).c_str());
  gtk_window_set_title(GTK_WINDOW(message), "Option");
  gtk_dialog_run(GTK_DIALOG(message));
  gtk_widget_destroy(message);
}

void OptionWindow::Close(bool isOk) {
  isOk_ = isOk;
  isOpen_ = false;
  gtk_dialog_response(GTK_DIALOG(dialog_), GTK_RESPONSE_NONE);
}

}  // namespace qv
