#pragma once

#include "dialogs/model/FormatOptionModel.h"
#include "dialogs/model/FormatOptionView.h"
#include "dialogs/model/Sample.h"
#include "manager/FormatOptionDialog.h"

#include <array>
#include <cstddef>
#include <exception>
#include <string>
#include <vector>

namespace qv {

/// Stands between the rules and the windows: runs a command on the model and shows what has changed.
class FormatOptionPresenter : public FormatOptionCommands {
 public:
  FormatOptionPresenter(const FormatOptionRequest& request, const std::string& settingsFile);

  void Open(FormatOptionView& view) override;
  void Run(OptionCommand command) override;
  void ChooseFormat(std::size_t index) override;
  void DropOnSequence(bool isFromPlan, std::size_t place) override;
  bool OffersHeaders() const override { return request_.offersHeaders; }
  bool OffersPreview() const override { return request_.offersHeaders && sample_.IsGiven(); }

  /// To be called when the windows are gone: an exception, such as one from a handler of the host's, closes
  /// the dialog and is kept meanwhile, as it must not pass through the window system.
  void RethrowFailure() const;

 private:
  template <class Action>
  void Guarded(Action action);
  void RunOnModel(OptionCommand command);
  void ShowEverything();
  void ShowColumns();
  bool IsShown(DialogPart part) const { return isShown_[static_cast<std::size_t>(part)]; }
  void Toggle(DialogPart part);
  void RefreshSample();
  void FollowLater();
  void FollowControls();
  void ShowSample();
  void ApplySuggestion();
  void MatchHeaders();
  void DeleteFormat();
  void ShowHeaders();
  void MarkHeaders();
  void SelectMarkedColumns();
  void Ok();
  void Tell(const std::string& sentence);

  FormatOptionRequest request_;
  FormatOptionModel model_;
  FormatOptionView* view_ = nullptr;
  Sample sample_;
  Suggestion suggestion_;
  std::vector<std::size_t> shownHeaders_;               // the sample's columns whose headers are in the list
  std::array<bool, 3> isShown_ = {true, false, false};  // by DialogPart
  bool isShowing_ = true;   // what toolkits tell when a control is changed for them is no command
  bool isWaiting_ = false;  // a box or a spreadsheet is; not every window is disabled meanwhile
  bool hasFailed_ = false;
  std::exception_ptr failure_;
};

}  // namespace qv
