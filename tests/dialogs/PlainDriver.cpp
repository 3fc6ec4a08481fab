// Windows that are none: what the rules give them to show is what a person sees, and nothing is drawn.

#include "dialogs/FormatOptionPresenter.h"
#include "platform/CodePage.h"
#include "tests/dialogs/DialogDriver.h"

#include <cstdlib>
#include <filesystem>
#include <map>

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
        {Control::Ok, OptionCommand::Ok},
        {Control::Cancel, OptionCommand::Cancel}};
    if (control == Control::NameOnly || control == Control::NameWithPath)
      controls_.PartName = static_cast<qv::PartNameMode>(control == Control::NameWithPath);
    else if (bool* const box = BoxOf(control))
      *box = !*box;
    if (const auto command = kCommands.find(control); command != kCommands.end())
      commands_.Run(command->second);
  }
  void Choose(Control control, int rank) override {
    if (control == Control::Qualifier)
      controls_.Qualifier = rank;
    else
      commands_.ChooseFormat(static_cast<std::size_t>(rank));
  }
  void Type(Control control, const std::string& text) override {
    if (control == Control::StartLine)
      controls_.StartLine = std::atoi(text.c_str());
    else
      (control == Control::FormatName ? controls_.FormatName : controls_.OtherDelimiters) =
          qv::FromUtf8(text);
  }
  void Select(Control list, const qv::Selection& ranks) override {
    selected_[list] = ranks;
    if (list == Control::Sequence) commands_.Run(OptionCommand::SelectSequence);
  }
  void DoubleClick(Control list, int rank) override {
    Select(list, {static_cast<std::size_t>(rank)});
    commands_.Run(list == Control::PlanItems ? OptionCommand::Add : OptionCommand::Delete);
  }
  void Press(Key key, Control) override {
    commands_.Run(key == Key::Enter ? OptionCommand::Ok : OptionCommand::Cancel);
  }
  void CloseHeaderWindow() override { commands_.Run(OptionCommand::ToggleHeaders); }
  std::string DismissMessage() override { return told_; }

  std::string Text(Control control) override {
    if (control == Control::FormatName) return controls_.FormatName;
    if (control == Control::StartLine) return std::to_string(controls_.StartLine);
    return control == Control::OtherDelimiters ? controls_.OtherDelimiters
                                               : std::to_string(controls_.Qualifier);
  }
  std::vector<std::string> Items(Control control) override { return items_[control]; }
  qv::Selection Selected(Control list) override { return selected_[list]; }
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
    return areHeadersShown_ || (control != Control::Headers && control != Control::Refresh);
  }
  Frame DialogFrame() override { return {}; }
  Frame HeaderWindowFrame() override { return {}; }
  bool IsOpen() override { return isOpen_; }

 private:
  bool TakeControls(qv::OptionControls& controls, std::string&) override {
    controls = controls_;
    return true;
  }
  void ShowControls(const qv::OptionControls& controls) override { controls_ = controls; }
  void ShowFormatNames(const std::vector<std::string>& names) override {
    items_[Control::FormatName] = names;
  }
  void ShowPlanItems(const std::vector<std::string>& items) override { items_[Control::PlanItems] = items; }
  void ShowSequence(const std::vector<std::string>& items, const qv::Selection& selection) override {
    items_[Control::Sequence] = items;
    selected_[Control::Sequence] = selection;
  }
  qv::Selection PlanSelection() const override { return selected_.at(Control::PlanItems); }
  qv::Selection SequenceSelection() const override { return selected_.at(Control::Sequence); }
  void Enable(const qv::OptionEnabling& enabling) override { enabling_ = enabling; }
  void ShowHeaderWindow(bool isShown) override { areHeadersShown_ = isShown; }
  void ShowHeaders(const std::vector<std::string>& headers) override { items_[Control::Headers] = headers; }
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
  std::map<Control, qv::Selection> selected_ = {{Control::PlanItems, {}}, {Control::Sequence, {}}};
  std::string told_;
  bool areHeadersShown_ = false, isOpen_ = true, isOk_ = false;
};

const std::function<void(DialogDriver&)>* currentScript = nullptr;

std::string SettingsPath() {
  return (std::filesystem::temp_directory_path() / "plain" / "Setting.ini").string();
}

bool Show(const FormatOptionRequest& request) {
  qv::FormatOptionPresenter presenter(request, SettingsPath());
  PlainDriver driver(presenter);
  (*currentScript)(driver);
  return driver.IsOk();
}

}  // namespace

DialogHost TheDialogHost() { return {"plain", SettingsPath(), Show}; }

bool RunDialog(const std::function<bool()>& show, const std::function<void(DialogDriver&)>& script,
               std::vector<std::string>& messages) {
  currentScript = &script;
  return WithMessagesIn(messages, show);
}
