#include "dialogs/FormatOptionPresenter.h"

#include "dialogs/SampleHeaders.h"
#include "platform/MessageBox.h"

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
    : request_(request), model_({request.configPath, settingsFile}) {}

void FormatOptionPresenter::Open(FormatOptionView& view) {
  view_ = &view;
  isShowing_ = true;
  const std::string remark = model_.Open(request_.formatName);
  std::vector<std::string> names;
  for (const OptionForm& form : model_.Formats()) names.push_back(form.Name);
  view_->ShowFormatNames(names);
  view_->ShowHeaders(headers_.Shown());
  ShowEverything();
  if (!remark.empty()) Tell(remark);
}

void FormatOptionPresenter::ChooseFormat(std::size_t rank) {
  if (isShowing_) return;
  model_.ShowFormat(rank);
  ShowEverything();
}

void FormatOptionPresenter::ShowEverything() {
  isShowing_ = true;
  view_->ShowControls(model_.Controls());
  view_->ShowPlanItems(model_.Columns().PlanItems());
  ShowColumns();
}

void FormatOptionPresenter::ShowColumns() {
  isShowing_ = true;
  view_->ShowSequence(model_.Columns().Sequence(), model_.Columns().SequenceSelection());
  view_->Enable(model_.Enabling());
  isShowing_ = false;
}

void FormatOptionPresenter::Run(OptionCommand command) {
  if (isShowing_ || isWaiting_) return;
  switch (command) {
    case OptionCommand::ToggleHeaders:
      return ToggleHeaders();
    case OptionCommand::RefreshHeaders:
      return RefreshHeaders();
    case OptionCommand::Ok:
      return Ok();
    case OptionCommand::Cancel:
      return view_->Close(false);
    default:
      return RunOnModel(command);
  }
}

// A start line that is still being typed must not keep a button from working, so a complaint waits for OK.
void FormatOptionPresenter::RunOnModel(OptionCommand command) {
  std::string unheard;
  view_->TakeControls(model_.Controls(), unheard);
  const bool changesColumns = command >= OptionCommand::Add && command <= OptionCommand::MoveDown;
  if (changesColumns || command == OptionCommand::SelectSequence)
    model_.SelectSequence(view_->SequenceSelection());
  switch (command) {
    case OptionCommand::SetAsDefault:
      model_.SetAsDefault(model_.Controls().SetAsDefault);
      break;
    case OptionCommand::TickOther:
      model_.TickOther(model_.Controls().Delimiter(DelimiterBox::Other));
      break;
    case OptionCommand::Add:
      model_.SelectPlanItems(view_->PlanSelection());
      model_.Add();
      break;
    case OptionCommand::Delete:
      model_.Delete();
      break;
    case OptionCommand::MoveUp:
      model_.MoveUp();
      break;
    case OptionCommand::MoveDown:
      model_.MoveDown();
      break;
    default:
      break;
  }
  if (changesColumns)
    ShowColumns();
  else
    view_->Enable(model_.Enabling());
}

void FormatOptionPresenter::ToggleHeaders() {
  areHeadersShown_ = !areHeadersShown_;
  view_->ShowHeaderWindow(areHeadersShown_);
}

void FormatOptionPresenter::RefreshHeaders() {
  const Raised waiting(isWaiting_);
  std::string complaint;
  if (!view_->TakeControls(model_.Controls(), complaint)) return Tell(complaint);
  std::vector<std::string> headers = ReadSampleHeaders(request_.samplePath, model_.Form());
  if (headers.empty()) return;
  headers_.Set(headers);
  view_->ShowHeaders(headers_.Shown());
}

void FormatOptionPresenter::Ok() {
  std::string complaint;
  if (!view_->TakeControls(model_.Controls(), complaint) || !model_.Ok(complaint)) return Tell(complaint);
  if (areHeadersShown_) view_->ShowHeaderWindow(false);
  areHeadersShown_ = false;
  view_->Close(true);
}

void FormatOptionPresenter::Tell(const std::string& sentence) {
  const Raised waiting(isWaiting_);
  if (!TellMessageHandler(sentence.c_str())) view_->Tell(sentence);
}

}  // namespace qv
