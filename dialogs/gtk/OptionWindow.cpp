#include "dialogs/gtk/OptionWindow.h"

#include "dialogs/gtk/DialogModule.h"
#include "dialogs/gtk/Icons.h"

#include <algorithm>

namespace qv {

namespace {

constexpr const char* kCommandKey = "command";
constexpr int kGap = 6;
constexpr int kMinListHeight = 110;  // leaves a dialog that fits 1080 lines at twice their size
constexpr int kListHeight = 260;     // where there is room
constexpr int kMaxNamesHeight = 240;
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
  int line = 0;
  std::string unheard;
  if (!TakeStartLine(gtk_entry_get_text(GTK_ENTRY(spin)), line, unheard)) return GTK_INPUT_ERROR;
  Widen(spin, line);
  *value = line;
  return TRUE;
}

// A wheel that is turned over a combo box which is not open scrolls a page elsewhere, or is an accident.
gboolean DropScroll(GtkWidget*, GdkEvent*, gpointer) { return TRUE; }

void IgnoreWheel(GtkWidget* comboBox) {
  g_signal_connect(comboBox, "scroll-event", G_CALLBACK(DropScroll), nullptr);
}

/// Of a combo box the keyboard reaches its parts, which no label is for.
void NameParts(GtkWidget* comboBox, const char* name) {
  const auto nameIt = [](GtkWidget* part, gpointer to) {
    if (GTK_IS_CONTAINER(part)) NameParts(part, static_cast<const char*>(to));
    atk_object_set_name(gtk_widget_get_accessible(part), static_cast<const char*>(to));
  };
  gtk_container_forall(GTK_CONTAINER(comboBox), nameIt, const_cast<char*>(name));
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
      headers_(GTK_WINDOW(dialog_), commands),
      preview_(GTK_WINDOW(dialog_), commands) {
  plan_.OnDoubleClick([this] { commands_.Run(OptionCommand::Add); });
  sequence_.OnDoubleClick([this] { commands_.Run(OptionCommand::Delete); });
  plan_.OnDrop(sequence_, false, [this](bool, std::size_t) { commands_.Run(OptionCommand::Delete); });
  sequence_.OnDrop(plan_, true,
                   [this](bool isOwn, std::size_t place) { commands_.DropOnSequence(!isOwn, place); });
  sequence_.OnSelect([this] { commands_.Run(OptionCommand::SelectSequence); });
  Build();
}

OptionWindow::~OptionWindow() {
  if (pause_ != 0) g_source_remove(pause_);
  gtk_window_remove_mnemonic(GTK_WINDOW(dialog_), kUpMnemonic, up_);
  gtk_window_remove_mnemonic(GTK_WINDOW(dialog_), kDownMnemonic, down_);
  gtk_widget_destroy(dialog_);
}

bool OptionWindow::Run() {
  commands_.Open(*this);
  GrowLists();
  gtk_widget_show(dialog_);
  while (isOpen_) {
    const bool isOk = gtk_dialog_run(GTK_DIALOG(dialog_)) == GTK_RESPONSE_OK;
    commands_.Run(isOk ? OptionCommand::Ok : OptionCommand::Cancel);
  }
  return isOk_;
}

// As high as the screen allows, and no higher than is of use.
void OptionWindow::GrowLists() {
  constexpr int kTitleBar = 40;
  GtkRequisition least{};
  gtk_widget_get_preferred_size(dialog_, &least, nullptr);
  const int wanted = least.height + kListHeight - kMinListHeight;
  gtk_window_set_default_size(GTK_WINDOW(dialog_), -1, std::min(wanted, Screen().Height() - kTitleBar));
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

GtkWidget* OptionWindow::NewBox(const char* label, OptionCommand command) {
  GtkWidget* const box = gtk_check_button_new_with_mnemonic(label);
  RunOnSignal(box, "toggled", command);
  return box;
}

GtkWidget* OptionWindow::NewEntry() {
  GtkWidget* const entry = gtk_entry_new();
  gtk_entry_set_activates_default(GTK_ENTRY(entry), TRUE);
  RunOnSignal(entry, "changed", OptionCommand::Edit);
  return entry;
}

void OptionWindow::Build() {
  gtk_window_set_title(GTK_WINDOW(dialog_), "Option");
  GtkWidget* const content = gtk_dialog_get_content_area(GTK_DIALOG(dialog_));
  gtk_container_set_border_width(GTK_CONTAINER(content), 2 * kGap);
  gtk_box_set_spacing(GTK_BOX(content), 2 * kGap);

  Pack(content, BuildNameRow());
  Pack(content, nameHint_);
  Pack(content, BuildReadingRow());
  GtkWidget* const groups = NewRow();
  PackWide(groups, BuildDelimiters());
  PackWide(groups, BuildPartName());
  Pack(content, groups);
  treatAsOne_ = NewBox("Treat consecuti_ve delimiters as one");
  gtk_widget_set_tooltip_text(treatAsOne_, kTreatAsOneTip);
  Pack(content, treatAsOne_);
  PackWide(content, BuildLists());
  toggleHeaders_ = NewCommandButton("Show _Header", OptionCommand::ToggleHeaders);
  togglePreview_ = NewCommandButton("Show Preview", OptionCommand::TogglePreview);
  GtkWidget* const windows = NewRow();
  Pack(windows, toggleHeaders_);
  Pack(windows, togglePreview_);
  Pack(content, windows);
  gtk_widget_show_all(content);
  gtk_widget_set_visible(togglePreview_, commands_.OffersPreview());
  gtk_widget_set_visible(toggleHeaders_, commands_.OffersHeaders());

  gtk_dialog_add_button(GTK_DIALOG(dialog_), "OK", GTK_RESPONSE_OK);
  gtk_dialog_add_button(GTK_DIALOG(dialog_), "Cancel", GTK_RESPONSE_CANCEL);
  gtk_dialog_set_default_response(GTK_DIALOG(dialog_), GTK_RESPONSE_OK);
  g_signal_connect(dialog_, "key-press-event", G_CALLBACK(KeyPressed), this);
  gtk_window_add_mnemonic(GTK_WINDOW(dialog_), kUpMnemonic, up_);
  gtk_window_add_mnemonic(GTK_WINDOW(dialog_), kDownMnemonic, down_);
}

bool OptionWindow::RunOnKey(guint key, guint modifiers) {
  const bool isEnter = key == GDK_KEY_Return || key == GDK_KEY_KP_Enter;
  const GtkWidget* const focus = gtk_window_get_focus(GTK_WINDOW(dialog_));
  const struct {
    const GtkWidget* list;  // null: everywhere
    guint key;
    guint modifiers;
    OptionCommand command;
  } keys[] = {
      {nullptr, GDK_KEY_z, GDK_CONTROL_MASK, OptionCommand::Undo},
      {nullptr, GDK_KEY_y, GDK_CONTROL_MASK, OptionCommand::Redo},
      {nullptr, GDK_KEY_z, GDK_CONTROL_MASK | GDK_SHIFT_MASK, OptionCommand::Redo},
      {plan_.List(), GDK_KEY_Insert, 0, OptionCommand::Add},
      {sequence_.List(), GDK_KEY_Delete, 0, OptionCommand::Delete},
      {sequence_.List(), GDK_KEY_Up, GDK_MOD1_MASK, OptionCommand::MoveUp},
      {sequence_.List(), GDK_KEY_Down, GDK_MOD1_MASK, OptionCommand::MoveDown},
  };
  if (isEnter && modifiers == 0 && focus == GTK_WIDGET(NameEntry()) && ChooseCompleted()) return true;
  if (isEnter && focus == plan_.List() && !plan_.Selected().empty()) key = GDK_KEY_Insert;
  for (const auto& row : keys) {
    if (row.key != key || row.modifiers != modifiers || (row.list != nullptr && row.list != focus)) continue;
    commands_.Run(row.command);
    return true;
  }
  // Enter is OK everywhere but on another button, as in the dialogs of other systems; here a box would toggle
  // and a list would take the double click's command.
  return isEnter && (GTK_IS_CHECK_BUTTON(focus) || GTK_IS_TREE_VIEW(focus)) &&
         gtk_window_activate_default(GTK_WINDOW(dialog_)) != FALSE;
}

gboolean OptionWindow::KeyPressed(GtkWidget*, GdkEventKey* event, gpointer self) {
  const guint modifiers = event->state & gtk_accelerator_get_default_mod_mask();
  return static_cast<OptionWindow*>(self)->RunOnKey(gdk_keyval_to_lower(event->keyval), modifiers);
}

GtkWidget* OptionWindow::BuildNameRow() {
  names_ = gtk_combo_box_text_new_with_entry();
  gtk_entry_set_activates_default(NameEntry(), TRUE);
  g_signal_connect(names_, "changed", G_CALLBACK(FormatChanged), this);
  g_signal_connect(NameEntry(), "populate-popup", G_CALLBACK(MenuOpened), this);
  g_signal_connect(names_, "notify::popup-shown", G_CALLBACK(NamesDropped), nullptr);
  NameParts(names_, "Format Name");
  CompleteNames();
  ShortenNames();
  IgnoreWheel(names_);
  nameHint_ = gtk_label_new("");
  gtk_widget_set_name(nameHint_, "name-hint");
  gtk_label_set_xalign(GTK_LABEL(nameHint_), 0);
  default_ = NewBox("Set as default _form", OptionCommand::SetAsDefault);
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
  RunOnSignal(startLine_, "changed", OptionCommand::Edit);
  qualifier_ = gtk_combo_box_text_new();
  for (const char* const item : kQualifiers)
    gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(qualifier_), item);
  NameParts(qualifier_, "Text qualifier");
  RunOnSignal(qualifier_, "changed", OptionCommand::Edit);
  IgnoreWheel(qualifier_);
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
    delimiters_[box] = NewBox(kDelimiterLabels[box], static_cast<Delimiter>(box) == Delimiter::Other
                                                         ? OptionCommand::TickOther
                                                         : OptionCommand::Edit);
  GtkWidget* const other = delimiters_[static_cast<std::size_t>(Delimiter::Other)];
  otherDelimiters_ = NewEntry();
  gtk_entry_set_width_chars(GTK_ENTRY(otherDelimiters_), 6);
  atk_object_set_name(gtk_widget_get_accessible(otherDelimiters_), "Other delimiters");

  GtkWidget* const grid = gtk_grid_new();
  gtk_grid_set_row_spacing(GTK_GRID(grid), kGap);
  gtk_grid_set_column_spacing(GTK_GRID(grid), 2 * kGap);
  for (int box = 0; box < 3; ++box)
    gtk_grid_attach(GTK_GRID(grid), delimiters_[static_cast<std::size_t>(box)], box, 0, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), delimiters_[static_cast<std::size_t>(Delimiter::Space)], 0, 1, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), other, 1, 1, 1, 1);
  gtk_grid_attach(GTK_GRID(grid), otherDelimiters_, 2, 1, 1, 1);
  return NewGroup("Delimiters", grid);
}

GtkWidget* OptionWindow::BuildPartName() {
  nameOnly_ = gtk_radio_button_new_with_mnemonic(nullptr, "Part Name Onl_y");
  nameWithPath_ = gtk_radio_button_new_with_mnemonic_from_widget(GTK_RADIO_BUTTON(nameOnly_),
                                                                 "Part Name With Fu_ll Path");
  RunOnSignal(nameOnly_, "toggled", OptionCommand::Edit);
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
    gtk_widget_set_size_request(list, 220, kMinListHeight);
    gtk_widget_set_hexpand(list, TRUE);
    gtk_widget_set_vexpand(list, TRUE);
  }
  return grid;
}

GtkEntry* OptionWindow::NameEntry() const { return GTK_ENTRY(gtk_bin_get_child(GTK_BIN(names_))); }

void OptionWindow::CompleteNames() {
  GtkEntryCompletion* const completion = gtk_entry_completion_new();
  gtk_entry_completion_set_model(completion, gtk_combo_box_get_model(GTK_COMBO_BOX(names_)));
  gtk_entry_completion_set_text_column(completion, 0);
  gtk_entry_completion_set_inline_completion(completion, TRUE);
  gtk_entry_completion_set_popup_completion(completion, FALSE);
  gtk_entry_set_completion(NameEntry(), completion);
  g_object_unref(completion);
}

// A list, other than a menu, scrolls with a bar.
void OptionWindow::ShortenNames() {
  AddStyle(names_, "* { -GtkComboBox-appears-as-list: true; }");
  GList* const cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(names_));
  g_object_set(cells->data, "ellipsize", PANGO_ELLIPSIZE_MIDDLE, nullptr);
  g_list_free(cells);
}

// The toolkit makes the list as high as the screen allows, whenever it places it.
void OptionWindow::NamesDropped(GtkComboBox* names, GParamSpec*, gpointer) {
  AtkObject* const list = gtk_combo_box_get_popup_accessible(names);
  GtkWidget* const popup = gtk_widget_get_toplevel(gtk_accessible_get_widget(GTK_ACCESSIBLE(list)));
  const auto placed = +[](GtkWidget*, GParamSpec*, gpointer comboBox) {
    g_idle_add_full(G_PRIORITY_HIGH, LimitNames, g_object_ref(comboBox), g_object_unref);
  };
  g_signal_handlers_disconnect_matched(popup, G_SIGNAL_MATCH_FUNC, 0, 0, nullptr,
                                       reinterpret_cast<gpointer>(placed), nullptr);
  g_signal_connect(popup, "notify::height-request", G_CALLBACK(placed), names);
}

gboolean OptionWindow::LimitNames(gpointer names) {
  AtkObject* const spoken = gtk_combo_box_get_popup_accessible(GTK_COMBO_BOX(names));
  GtkWidget* const list = gtk_accessible_get_widget(GTK_ACCESSIBLE(spoken));
  GtkWidget* const scrolled = gtk_widget_get_ancestor(list, GTK_TYPE_SCROLLED_WINDOW);
  GtkWindow* const popup = GTK_WINDOW(gtk_widget_get_toplevel(list));
  int width = 0, height = 0, left = 0, top = 0, nameLeft = 0, nameTop = 0;
  gtk_widget_get_size_request(GTK_WIDGET(popup), &width, &height);
  if (height <= kMaxNamesHeight || gtk_widget_get_mapped(list) == FALSE) return G_SOURCE_REMOVE;
  gtk_window_get_position(popup, &left, &top);
  gdk_window_get_root_coords(gtk_widget_get_window(GTK_WIDGET(names)), 0, 0, &nameLeft, &nameTop);
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scrolled), GTK_POLICY_NEVER, GTK_POLICY_ALWAYS);
  gtk_widget_set_size_request(GTK_WIDGET(popup), width, kMaxNamesHeight);
  gtk_window_resize(popup, width, kMaxNamesHeight);
  if (top < nameTop) gtk_window_move(popup, left, top + height - kMaxNamesHeight);
  return G_SOURCE_REMOVE;
}

bool OptionWindow::ChooseCompleted() {
  int begin = 0, end = 0;
  gtk_editable_get_selection_bounds(GTK_EDITABLE(NameEntry()), &begin, &end);
  const auto index = CompletedName(formatNames_, gtk_entry_get_text(NameEntry()), begin,
                                   end == gtk_entry_get_text_length(NameEntry()) ? end : 0);
  if (index) commands_.ChooseFormat(*index);
  return index.has_value();
}

void OptionWindow::MenuOpened(GtkEntry*, GtkWidget* menu, gpointer self) {
  GtkWidget* const item = gtk_menu_item_new_with_mnemonic("Delete _Format...");
  auto* const window = static_cast<OptionWindow*>(self);
  window->RunOnSignal(item, "activate", OptionCommand::DeleteFormat);
  for (GtkWidget* const added : {gtk_separator_menu_item_new(), item}) {
    gtk_menu_shell_append(GTK_MENU_SHELL(menu), added);
    gtk_widget_show(added);
  }
}

// Typing changes the combo box too, but then no row of its list is active.
void OptionWindow::FormatChanged(GtkComboBox* names, gpointer self) {
  FormatOptionCommands& commands = static_cast<OptionWindow*>(self)->commands_;
  const int index = gtk_combo_box_get_active(names);
  if (index >= 0)
    commands.ChooseFormat(static_cast<std::size_t>(index));
  else
    commands.Run(OptionCommand::Edit);
}

bool OptionWindow::TakeControls(OptionControls& controls, std::string& complaint) {
  controls.FormatName = TextOf(NameEntry(), shownName_);
  controls.SetAsDefault = IsActive(default_);
  const bool isWhole =
      TakeStartLine(gtk_entry_get_text(GTK_ENTRY(startLine_)), controls.StartLine, complaint);
  const int qualifier = gtk_combo_box_get_active(GTK_COMBO_BOX(qualifier_));
  if (qualifier >= 0) controls.Qualifier = qualifier;
  for (std::size_t box = 0; box < delimiters_.size(); ++box)
    controls.Delimiters[box] = IsActive(delimiters_[box]);
  controls.OtherDelimiters = TextOf(GTK_ENTRY(otherDelimiters_), shownOther_);
  controls.PartName = IsActive(nameOnly_) ? PartNameMode::NameOnly : PartNameMode::NameWithFullPath;
  controls.TreatAsOne = IsActive(treatAsOne_);
  return isWhole;
}

void OptionWindow::ShowControls(const OptionControls& controls) {
  const auto name = std::find(formatNames_.begin(), formatNames_.end(), controls.FormatName);
  if (name != formatNames_.end())
    gtk_combo_box_set_active(GTK_COMBO_BOX(names_), static_cast<int>(name - formatNames_.begin()));
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
  const std::size_t kept = KeptEntries(formatNames_, names);
  if (kept == 0) gtk_combo_box_text_remove_all(GTK_COMBO_BOX_TEXT(names_));
  for (std::size_t index = kept; index < names.size(); ++index)
    gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(names_), WidgetText(names[index]).c_str());
  formatNames_ = names;
}

void OptionWindow::ShowNameHint(const std::string& hint) {
  gtk_label_set_text(GTK_LABEL(nameHint_), WidgetText(hint).c_str());
  gtk_widget_set_visible(nameHint_, hint.empty() ? FALSE : TRUE);
}

void OptionWindow::ShowPlanItems(const std::vector<std::string>& items) {
  plan_.Show(items);
  plan_.Select({});
}

void OptionWindow::ShowSequence(const std::vector<std::string>& items, const Selection& selection,
                                std::optional<std::size_t> cursor) {
  sequence_.Show(items);
  if (cursor) sequence_.MoveCursor(*cursor);
  sequence_.Select(selection);
}

void OptionWindow::Enable(const OptionEnabling& enabling) {
  GtkWidget* const focus = gtk_window_get_focus(GTK_WINDOW(dialog_));
  gtk_widget_set_sensitive(otherDelimiters_, enabling.OtherDelimiters);
  gtk_widget_set_sensitive(sequence_.List(), enabling.Sequence);
  gtk_widget_set_sensitive(delete_, enabling.Delete);
  gtk_widget_set_sensitive(up_, enabling.Up);
  gtk_widget_set_sensitive(down_, enabling.Down);
  // A disabled button that keeps the focus would leave the keyboard without effect.
  if (focus != nullptr && !gtk_widget_is_sensitive(focus))
    gtk_widget_grab_focus(enabling.Sequence ? sequence_.List() : plan_.List());
}

SideWindow& OptionWindow::Beside(DialogPart part) {
  if (part == DialogPart::Headers) return headers_;
  return preview_;
}

void OptionWindow::ShowWindow(DialogPart part, bool isShown) {
  GtkWidget* const button = part == DialogPart::Headers ? toggleHeaders_ : togglePreview_;
  gtk_button_set_label(GTK_BUTTON(button), ToggleLabel(part, isShown, '_').c_str());
  Beside(part).Show(isShown);
}

WindowFrame OptionWindow::FrameOf(DialogPart part) const {
  if (part == DialogPart::Dialog) return qv::FrameOf(GTK_WINDOW(dialog_));
  return const_cast<OptionWindow*>(this)->Beside(part).Frame();
}

void OptionWindow::Place(DialogPart part, const WindowFrame& frame) {
  if (part == DialogPart::Dialog)
    gtk_window_move(GTK_WINDOW(dialog_), frame.left, frame.top);
  else
    Beside(part).Place(frame);
}

WindowFrame OptionWindow::Screen() const {
  GdkDisplay* const display = gtk_widget_get_display(dialog_);
  GdkWindow* const window = gtk_widget_get_window(dialog_);
  GdkMonitor* const primary = gdk_display_get_primary_monitor(display);
  GdkRectangle area{};
  gdk_monitor_get_workarea(window != nullptr    ? gdk_display_get_monitor_at_window(display, window)
                           : primary != nullptr ? primary
                                                : gdk_display_get_monitor(display, 0),
                           &area);
  return {area.x, area.y, area.x + area.width, area.y + area.height};
}

void OptionWindow::StartPause() {
  if (pause_ != 0) g_source_remove(pause_);
  pause_ = g_timeout_add(kPause, PauseEnded, this);
}

gboolean OptionWindow::PauseEnded(gpointer self) {
  auto* const window = static_cast<OptionWindow*>(self);
  window->pause_ = 0;
  window->commands_.Run(OptionCommand::EndPause);
  return G_SOURCE_REMOVE;
}

int OptionWindow::ShowMessage(const char* title, const std::string& text, GtkMessageType type,
                              GtkButtonsType buttons) {
  GtkWidget* const message = gtk_message_dialog_new(GTK_WINDOW(dialog_), GTK_DIALOG_MODAL, type, buttons,
                                                    "%s", WidgetText(text).c_str());
  gtk_window_set_title(GTK_WINDOW(message), title);
  const int response = gtk_dialog_run(GTK_DIALOG(message));
  gtk_widget_destroy(message);
  return response;
}

void OptionWindow::Tell(const std::string& sentence) {
  ShowMessage("Option", sentence, GTK_MESSAGE_WARNING, GTK_BUTTONS_OK);
}

bool OptionWindow::Ask(const std::string& question) {
  return ShowMessage("Delete Format", question, GTK_MESSAGE_QUESTION, GTK_BUTTONS_YES_NO) == GTK_RESPONSE_YES;
}

void OptionWindow::Close(bool isOk) {
  isOk_ = isOk;
  isOpen_ = false;
  gtk_dialog_response(GTK_DIALOG(dialog_), GTK_RESPONSE_NONE);
}

}  // namespace qv

#define DIALOG_MODULE_FUNCTION extern "C" __attribute__((visibility("default")))

namespace {

// The host's numbers must not change their decimal point because a dialog was opened. A host that uses GTK
// itself has decided already.
void KeepLocale() {
  static bool isDecided = gdk_display_get_default() != nullptr;
  if (!isDecided) gtk_disable_setlocale();
  isDecided = true;
}

}  // namespace

DIALOG_MODULE_FUNCTION bool QvHasDisplay() {
  KeepLocale();
  return gtk_init_check(nullptr, nullptr) != FALSE;
}

DIALOG_MODULE_FUNCTION bool QvRunFormatOptionDialog(qv::FormatOptionCommands& commands) {
  return qv::OptionWindow(commands).Run();
}
