#include "dialogs/model/FormatOptionPresenter.h"

#include "dialogs/model/WindowPlacement.h"
#include "platform/Handlers.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

namespace qv {
namespace {

/// Raises a flag for as long as it lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  const bool before_;
};

}  // namespace

FormatOptionPresenter::FormatOptionPresenter(const FormatOptionRequest& request,
                                             const std::string& settingsFile)
    : request_(request), model_({request.configPath, settingsFile}), sample_(request.samplePath) {}

template <class Action>
void FormatOptionPresenter::Guarded(Action action) {
  if (hasFailed_) return;
  try {
    action();
  } catch (...) {
    hasFailed_ = true;
    failure_ = std::current_exception();
    view_->Close(false);
  }
}

void FormatOptionPresenter::RethrowFailure() const {
  if (!hasFailed_) return;
  // Another C++ runtime's exception is caught, but cannot be kept.
  if (failure_ == nullptr)
    throw std::runtime_error("a handler threw while the format option dialog was open");
  std::rethrow_exception(failure_);
}

void FormatOptionPresenter::Open(FormatOptionView& view) {
  view_ = &view;
  Guarded([this] {
    const std::string remark = model_.Open(request_.formatName);
    ShowEverything();
    if (!remark.empty()) Tell(remark);
  });
}

void FormatOptionPresenter::Run(OptionCommand command) {
  if (isShowing_ || isWaiting_) return;
  Guarded([this, command] {
    switch (command) {
      case OptionCommand::Undo:
        return model_.Undo() ? ShowEverything() : void();
      case OptionCommand::Redo:
        return model_.Redo() ? ShowEverything() : void();
      case OptionCommand::ToggleHeaders:
        return Toggle(DialogPart::Headers);
      case OptionCommand::RefreshHeaders:
        return RefreshSample();
      case OptionCommand::SelectHeaders:
        return SelectMarkedColumns();
      case OptionCommand::TogglePreview:
        return Toggle(DialogPart::Preview);
      case OptionCommand::DeleteFormat:
        return DeleteFormat();
      case OptionCommand::MatchHeaders:
        return MatchHeaders();
      case OptionCommand::ApplySuggestion:
        return ApplySuggestion();
      case OptionCommand::EndPause:
        return FollowControls();
      case OptionCommand::Ok:
        return Ok();
      case OptionCommand::Cancel:
        return view_->Close(false);
      default:
        RunOnModel(command);
        model_.EndStep();
        view_->ShowNameHint(model_.NameHint());
        FollowLater();
    }
  });
}

void FormatOptionPresenter::ChooseFormat(std::size_t index) {
  if (isShowing_) return;
  if (isWaiting_) return ShowEverything();
  Guarded([this, index] {
    // The combo box reads the chosen name already.
    std::string name = model_.Controls().FormatName;
    std::string complaint;
    const bool isTaken = view_->TakeControls(model_.Controls(), complaint);
    model_.Controls().FormatName = std::move(name);
    if (!isTaken || !model_.ShowFormat(index, complaint)) Tell(complaint);
    model_.EndStep();
    ShowEverything();
  });
}

void FormatOptionPresenter::DropOnSequence(bool isFromPlan, std::size_t place) {
  if (isShowing_ || isWaiting_) return;
  Guarded([this, isFromPlan, place] {
    std::string unheard;
    view_->TakeControls(model_.Controls(), unheard);
    model_.Change(&ColumnLists::SelectSequence, view_->SequenceSelection());
    if (isFromPlan)
      model_.Change(&ColumnLists::Insert, view_->PlanSelection(), place);
    else
      model_.Change(&ColumnLists::MoveTo, place);
    model_.EndStep();
    ShowColumns();
    FollowLater();
  });
}

void FormatOptionPresenter::ShowEverything() {
  isShowing_ = true;
  std::vector<std::string> names;
  for (const OptionForm& form : model_.Formats()) names.push_back(form.Name);
  view_->ShowFormatNames(names);
  view_->ShowControls(model_.Controls());
  view_->ShowNameHint(model_.NameHint());
  view_->ShowPlanItems(model_.Columns().PlanItems());
  ShowColumns();
  FollowLater();
}

void FormatOptionPresenter::ShowColumns() {
  isShowing_ = true;
  const ColumnLists& columns = model_.Columns();
  view_->ShowUsedPlanItems(columns.UsedPlanItems());
  view_->ShowSequence(columns.Sequence(), columns.SequenceSelection(), columns.Cursor());
  view_->Enable(model_.Enabling());
  isShowing_ = false;
  MarkHeaders();
}

// A start line that is still being typed must not keep a button from working, so a complaint waits for OK.
void FormatOptionPresenter::RunOnModel(OptionCommand command) {
  std::string unheard;
  view_->TakeControls(model_.Controls(), unheard);
  const bool changesColumns = command >= OptionCommand::Add && command <= OptionCommand::MoveDown;
  if (changesColumns || command == OptionCommand::SelectSequence)
    model_.Change(&ColumnLists::SelectSequence, view_->SequenceSelection());
  switch (command) {
    case OptionCommand::SetAsDefault:
      model_.SetAsDefault(model_.Controls().SetAsDefault);
      break;
    case OptionCommand::TickOther:
      model_.TickOther(model_.Controls().Ticked(Delimiter::Other));
      break;
    case OptionCommand::Add:
      model_.Add(view_->PlanSelection());
      break;
    case OptionCommand::Delete:
      model_.Change(&ColumnLists::Delete);
      break;
    case OptionCommand::MoveUp:
      model_.Change(&ColumnLists::MoveUp);
      break;
    case OptionCommand::MoveDown:
      model_.Change(&ColumnLists::MoveDown);
      break;
    default:
      break;
  }
  if (changesColumns)
    ShowColumns();
  else
    view_->Enable(model_.Enabling());
  if (command == OptionCommand::SelectSequence) MarkHeaders();
}

void FormatOptionPresenter::Toggle(DialogPart part) {
  bool& isShown = isShown_[static_cast<std::size_t>(part)];
  isShown = !isShown;
  if (isShown) PlaceBeside(*view_, part, IsShown(DialogPart::Headers), IsShown(DialogPart::Preview));
  view_->ShowWindow(part, isShown);
  if (isShown) FollowControls();
}

void FormatOptionPresenter::RefreshSample() {
  const Raised waiting(isWaiting_);
  std::string complaint;
  if (!view_->TakeControls(model_.Controls(), complaint)) return Tell(complaint);
  sample_.Refresh();
  ShowSample();
}

void FormatOptionPresenter::FollowLater() {
  if (IsShown(DialogPart::Headers) || IsShown(DialogPart::Preview)) view_->StartPause();
}

// What is still being typed is followed when it can be used.
void FormatOptionPresenter::FollowControls() {
  const Raised waiting(isWaiting_);
  std::string unheard;
  view_->TakeControls(model_.Controls(), unheard);
  sample_.Read();
  ShowSample();
}

void FormatOptionPresenter::ShowSample() {
  if (IsShown(DialogPart::Headers)) ShowHeaders();
  if (!IsShown(DialogPart::Preview)) return;
  const Sample::Trial trial = sample_.Try(model_.Form());
  suggestion_ = trial.suggestion;
  view_->ShowPreview(trial.preview);
}

void FormatOptionPresenter::ApplySuggestion() {
  std::string unheard;
  view_->TakeControls(model_.Controls(), unheard);
  if (suggestion_.layout) model_.TakeLayout(*suggestion_.layout);
  if (suggestion_.startLine) model_.Controls().StartLine = *suggestion_.startLine;
  model_.EndStep();
  ShowEverything();
  FollowControls();
}

void FormatOptionPresenter::MatchHeaders() {
  FollowControls();
  const std::vector<std::string> columns = sample_.ColumnsForHeaders(model_.Form());
  if (columns.empty())
    return Tell("No heading in line " + std::to_string(model_.Controls().StartLine) +
                " says which item it stands for.");
  model_.Change(&ColumnLists::Replace, columns);
  model_.EndStep();
  ShowEverything();
}

// A sample that gives no headers leaves those of the last reading in the list.
void FormatOptionPresenter::ShowHeaders() {
  std::string trouble = sample_.Trouble();
  const std::vector<std::string> headers = sample_.Headers(model_.Form());
  if (trouble.empty() && headers.empty())
    trouble = "no header in line " + std::to_string(model_.Controls().StartLine);
  if (trouble.empty()) {
    std::vector<std::string> shown;
    shownHeaders_.clear();
    for (std::size_t column = 0; column < headers.size(); ++column) {
      if (!IsShownName(headers[column])) continue;
      shown.push_back(headers[column]);
      shownHeaders_.push_back(column);
    }
    view_->ShowHeaders(shown);
    MarkHeaders();
  }
  view_->ShowHeaderCaption("User Header Items" + (trouble.empty() ? "" : " - " + trouble));
}

// The n-th header is that of the sequence's n-th item.
void FormatOptionPresenter::MarkHeaders() {
  const Selection& columns = model_.Columns().SequenceSelection();
  Selection marked;
  for (std::size_t index = 0; index < shownHeaders_.size(); ++index)
    if (std::binary_search(columns.begin(), columns.end(), shownHeaders_[index])) marked.push_back(index);
  const Raised showing(isShowing_);
  view_->SelectHeaders(marked);
}

void FormatOptionPresenter::SelectMarkedColumns() {
  Selection columns;
  for (const std::size_t index : view_->HeaderSelection()) columns.push_back(shownHeaders_.at(index));
  model_.Change(&ColumnLists::SelectSequence, columns);
  model_.EndStep();
  const Raised showing(isShowing_);
  view_->ShowSequence(model_.Columns().Sequence(), model_.Columns().SequenceSelection(), std::nullopt);
  view_->Enable(model_.Enabling());
}

void FormatOptionPresenter::DeleteFormat() {
  const std::size_t shown = model_.ShownIndex();
  if (shown == model_.Formats().size()) return Tell("This format is not saved yet.");
  bool isConfirmed = false;
  {
    const Raised waiting(isWaiting_);
    isConfirmed = view_->Ask("Delete the format \"" + model_.Formats()[shown].Name + "\"?");
  }
  if (!isConfirmed) return;
  model_.DeleteShown();
  model_.EndStep();
  ShowEverything();
}

void FormatOptionPresenter::Ok() {
  std::string sentence;
  if (!view_->TakeControls(model_.Controls(), sentence)) return Tell(sentence);
  const bool isSaved = model_.Ok(sentence);
  if (!sentence.empty()) Tell(sentence);
  if (!isSaved) return;
  for (const DialogPart part : {DialogPart::Headers, DialogPart::Preview})
    if (IsShown(part)) Toggle(part);
  view_->Close(true);
}

void FormatOptionPresenter::Tell(const std::string& sentence) {
  const Raised waiting(isWaiting_);
  if (!TellMessageHandler(sentence.c_str())) view_->Tell(sentence);
}

}  // namespace qv
