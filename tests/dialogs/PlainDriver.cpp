// Windows that are none: what the rules give them to show is what a person sees, and nothing is drawn.

#include "dialogs/model/FormatOptionPresenter.h"
#include "platform/CodePage.h"
#include "tests/dialogs/DialogDriver.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <utility>

namespace {

using qv::OptionCommand;

class PlainDriver final : public DialogDriver, public qv::FormatOptionView {
 public:
  explicit PlainDriver(qv::FormatOptionCommands& commands) : commands_(commands) { commands_.Open(*this); }

  bool IsOk() const { return isOk_; }

  void Click(Control control) override {
    static const std::map<Control, OptionCommand> kCommands = {
        {Control::SetAsDefault, OptionCommand::SetAsDefault},
        {Control::Other, OptionCommand::TickOther},
        {Control::Add, OptionCommand::Add},
        {Control::Delete, OptionCommand::Delete},
        {Control::Up, OptionCommand::MoveUp},
        {Control::Down, OptionCommand::MoveDown},
        {Control::ShowHeader, OptionCommand::ToggleHeaders},
        {Control::Refresh, OptionCommand::RefreshHeaders},
        {Control::ShowPreview, OptionCommand::TogglePreview},
        {Control::Match, OptionCommand::MatchHeaders},
        {Control::Apply, OptionCommand::ApplySuggestion},
        {Control::Ok, OptionCommand::Ok},
        {Control::Cancel, OptionCommand::Cancel}};
    if (control == Control::NameOnly || control == Control::NameWithPath)
      controls_.PartName = static_cast<qv::PartNameMode>(control == Control::NameWithPath);
    else if (bool* const box = BoxOf(control))
      *box = !*box;
    const auto command = kCommands.find(control);
    commands_.Run(command == kCommands.end() ? OptionCommand::Edit : command->second);
  }
  void Choose(Control control, int index) override {
    if (control == Control::FormatName) {
      controls_.FormatName = items_[control][static_cast<std::size_t>(index)];
      return commands_.ChooseFormat(static_cast<std::size_t>(index));
    }
    controls_.Qualifier = index;
    commands_.Run(OptionCommand::Edit);
  }
  void Type(Control control, const std::string& text) override {
    completed_ = qv::CompletionOf(text, items_[Control::FormatName]);
    if (control != Control::FormatName) completed_.clear();
    if (control == Control::StartLine)
      controls_.StartLine = std::atoi(text.c_str());
    else
      (control == Control::FormatName ? controls_.FormatName : controls_.OtherDelimiters) =
          qv::FromUtf8(text) + completed_;
    commands_.Run(OptionCommand::Edit);
  }
  void Select(Control list, const qv::Selection& indexes) override {
    selected_[list] = indexes;
    if (list == Control::Sequence) commands_.Run(OptionCommand::SelectSequence);
    if (list == Control::Headers) commands_.Run(OptionCommand::SelectHeaders);
  }
  void DoubleClick(Control list, int index) override {
    Select(list, {static_cast<std::size_t>(index)});
    commands_.Run(list == Control::PlanItems ? OptionCommand::Add : OptionCommand::Delete);
  }
  int Drag(Control from, const qv::Selection& entries, Control to, int place) override {
    Select(from, entries);
    const int rows = static_cast<int>(items_[to].size()), at = place < 0 ? rows : place;
    if (to == Control::PlanItems)
      commands_.Run(OptionCommand::Delete);
    else
      commands_.DropOnSequence(from == Control::PlanItems, static_cast<std::size_t>(at));
    return to == Control::PlanItems || rows == 0 ? -1 : at;
  }
  void Press(Control focus, const std::string& key) override {
    static const std::map<std::string, OptionCommand> kEverywhere = {{"Ctrl+Z", OptionCommand::Undo},
                                                                     {"Ctrl+Y", OptionCommand::Redo},
                                                                     {"Enter", OptionCommand::Ok},
                                                                     {"Escape", OptionCommand::Cancel}};
    static const std::map<std::string, OptionCommand> kInLists = {{"Insert", OptionCommand::Add},
                                                                  {"Delete", OptionCommand::Delete},
                                                                  {"Alt+Up", OptionCommand::MoveUp},
                                                                  {"Alt+Down", OptionCommand::MoveDown}};
    const auto& names = items_[Control::FormatName];
    const auto named = std::find(names.begin(), names.end(), controls_.FormatName);
    if (key == "Enter" && focus == Control::FormatName && !completed_.empty() && named != names.end())
      return commands_.ChooseFormat(static_cast<std::size_t>(named - names.begin()));
    const bool adds = key == "Enter" && focus == Control::PlanItems && !selected_[focus].empty();
    const bool isEverywhere = kEverywhere.contains(key) && !adds;
    commands_.Run(isEverywhere ? kEverywhere.at(key) : kInLists.at(adds ? "Insert" : key));
  }
  void TurnWheel(Control) override {}
  void CloseHeaderWindow() override { commands_.Run(OptionCommand::ToggleHeaders); }
  void Rest() override {
    if (std::exchange(isPaused_, false)) commands_.Run(OptionCommand::EndPause);
  }
  std::string DeleteFormat(bool isSure) override {
    isSure_ = isSure;
    commands_.Run(OptionCommand::DeleteFormat);
    return told_;
  }
  std::string DismissMessage() override { return told_; }

  std::string Text(Control control) override {
    if (control == Control::FormatName) return controls_.FormatName;
    if (control == Control::HeaderWindow) return caption_;
    if (control == Control::NameHint) return hint_;
    if (control == Control::Summary) return preview_.summary;
    if (control == Control::Suggestion) return preview_.suggestion;
    if (control == Control::StartLine) return std::to_string(controls_.StartLine);
    return control == Control::OtherDelimiters ? controls_.OtherDelimiters
                                               : std::to_string(controls_.Qualifier);
  }
  std::vector<std::string> Items(Control control) override { return items_[control]; }
  qv::Selection Selected(Control list) override { return selected_[list]; }
  qv::Selection Grey() override {
    qv::Selection grey;
    for (std::size_t index = 0; index < areUsed_.size(); ++index)
      if (areUsed_[index]) grey.push_back(index);
    return grey;
  }
  int Cursor(Control) override { return cursor_ ? static_cast<int>(*cursor_) : -1; }
  bool IsInSight(Control, int) override { return true; }
  bool IsTicked(Control control) override {
    if (const bool* const box = BoxOf(control)) return *box;
    return (control == Control::NameOnly) == (controls_.PartName == qv::PartNameMode::NameOnly);
  }
  bool IsEnabled(Control control) override {
    const std::map<Control, bool> may = {{Control::OtherDelimiters, enabling_.OtherDelimiters},
                                         {Control::Sequence, enabling_.Sequence},
                                         {Control::Delete, enabling_.Delete},
                                         {Control::Up, enabling_.Up},
                                         {Control::Down, enabling_.Down}};
    return !may.contains(control) || may.at(control);
  }
  bool IsVisible(Control control) override {
    if (control == Control::ShowHeader) return commands_.OffersHeaders();
    if (control == Control::ShowPreview) return commands_.OffersPreview();
    if (control == Control::Preview) return isPreviewShown_;
    if (control == Control::Apply) return preview_.canApply;
    return areHeadersShown_ || (control != Control::Headers && control != Control::Refresh);
  }
  std::vector<SeenCell> PreviewRow(int index) override {
    std::vector<SeenCell> cells;
    for (std::size_t column = 0; index < 0 && column < preview_.ShownColumns(); ++column)
      cells.push_back({preview_.HeadAt(column), preview_.IsGrey(column), false, false,
                       !preview_.HeadRemarkAt(column).empty()});
    if (index < 0) return cells;
    const auto row = static_cast<std::size_t>(index);
    const qv::Preview::RowState state = preview_.rows.at(row).state;
    for (std::size_t column = 0; column < preview_.ShownColumns(); ++column)
      cells.push_back({preview_.TextAt(row, column), preview_.IsGrey(column),
                       state == qv::Preview::RowState::LeftOut, state == qv::Preview::RowState::Header,
                       !preview_.RemarkAt(row, column).empty()});
    return cells;
  }
  std::string PreviewTip(int row, int column) override {
    const auto place = static_cast<std::size_t>(column);
    return row < 0 ? preview_.HeadRemarkAt(place) : preview_.RemarkAt(static_cast<std::size_t>(row), place);
  }
  Frame FrameOf(ControlWindow) override { return {}; }
  bool IsOpen() override { return isOpen_; }

 private:
  bool TakeControls(qv::OptionControls& controls, std::string&) override {
    controls = controls_;
    return true;
  }
  void ShowControls(const qv::OptionControls& controls) override { controls_ = controls; }
  void ShowNameHint(const std::string& hint) override { hint_ = hint; }
  bool Ask(const std::string& question) override {
    told_ = question;
    return isSure_;
  }
  void ShowFormatNames(const std::vector<std::string>& names) override {
    items_[Control::FormatName] = names;
  }
  void ShowPlanItems(const std::vector<std::string>& items) override {
    items_[Control::PlanItems] = items;
    selected_[Control::PlanItems] = {};
  }
  void ShowUsedPlanItems(const std::vector<bool>& areUsed) override { areUsed_ = areUsed; }
  void ShowSequence(const std::vector<std::string>& items, const qv::Selection& selection,
                    std::optional<std::size_t> cursor) override {
    items_[Control::Sequence] = items;
    selected_[Control::Sequence] = selection;
    cursor_ = cursor;
  }
  qv::Selection PlanSelection() const override { return selected_.at(Control::PlanItems); }
  qv::Selection SequenceSelection() const override { return selected_.at(Control::Sequence); }
  void Enable(const qv::OptionEnabling& enabling) override { enabling_ = enabling; }
  void ShowWindow(qv::DialogPart part, bool isShown) override {
    (part == qv::DialogPart::Headers ? areHeadersShown_ : isPreviewShown_) = isShown;
  }
  qv::WindowFrame FrameOf(qv::DialogPart) const override { return {}; }
  void Place(qv::DialogPart, const qv::WindowFrame&) override {}
  qv::WindowFrame Screen() const override { return {}; }
  void ShowHeaders(const std::vector<std::string>& headers) override {
    items_[Control::Headers] = headers;
    selected_[Control::Headers] = {};
  }
  void SelectHeaders(const qv::Selection& selection) override { selected_[Control::Headers] = selection; }
  qv::Selection HeaderSelection() const override { return selected_.at(Control::Headers); }
  void ShowPreview(const qv::Preview& preview) override { preview_ = preview; }
  void StartPause() override { isPaused_ = true; }
  void ShowHeaderCaption(const std::string& caption) override { caption_ = caption; }
  void Tell(const std::string& sentence) override { told_ = sentence; }
  void Close(bool isOk) override {
    isOk_ = isOk;
    isOpen_ = false;
  }

  bool* BoxOf(Control control) {
    if (control == Control::SetAsDefault) return &controls_.SetAsDefault;
    if (control == Control::TreatAsOne) return &controls_.TreatAsOne;
    if (control < Control::Tab || control > Control::Other) return nullptr;
    return &controls_.Delimiters[static_cast<std::size_t>(control) - static_cast<std::size_t>(Control::Tab)];
  }

  qv::FormatOptionCommands& commands_;
  qv::OptionControls controls_;
  qv::OptionEnabling enabling_;
  std::map<Control, std::vector<std::string>> items_;
  std::map<Control, qv::Selection> selected_ = {
      {Control::PlanItems, {}}, {Control::Sequence, {}}, {Control::Headers, {}}};
  std::vector<bool> areUsed_;
  std::optional<std::size_t> cursor_;
  std::string caption_, told_, hint_, completed_;
  bool isSure_ = false;
  qv::Preview preview_;
  bool areHeadersShown_ = false, isPreviewShown_ = false, isPaused_ = false, isOpen_ = true, isOk_ = false;
};

const std::function<void(DialogDriver&)>* currentScript = nullptr;

std::string SettingsPath() {
  return (std::filesystem::temp_directory_path() / "plain" / "Setting.ini").string();
}

bool Show(const FormatOptionRequest& request) {
  qv::FormatOptionPresenter presenter(request, SettingsPath());
  PlainDriver driver(presenter);
  (*currentScript)(driver);
  presenter.RethrowFailure();
  return driver.IsOk();
}

}  // namespace

DialogHost TheDialogHost() { return {"plain", SettingsPath(), Show}; }

bool RunDialog(const std::function<bool()>& show, const std::function<void(DialogDriver&)>& script,
               std::vector<std::string>& messages) {
  currentScript = &script;
  return WithMessagesIn(messages, show);
}
