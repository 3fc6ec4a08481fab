#pragma once

#include "dialogs/FormatOptionModel.h"
#include "dialogs/FormatOptionView.h"
#include "dialogs/HeaderNames.h"
#include "manager/FormatOptionDialog.h"

#include <string>

namespace qv {

/// Stands between the rules and the windows: runs a command on the model and shows what has changed.
class FormatOptionPresenter : public FormatOptionCommands {
 public:
  FormatOptionPresenter(const FormatOptionRequest& request, const std::string& settingsFile);

  void Open(FormatOptionView& view) override;
  void Run(OptionCommand command) override;
  void ChooseFormat(std::size_t rank) override;
  bool OffersHeaders() const override { return request_.offersHeaders; }

  const FormatOptionModel& Model() const { return model_; }
  const HeaderNames& Headers() const { return headers_; }

 private:
  void RunOnModel(OptionCommand command);
  void ShowEverything();
  void ShowColumns();
  void ToggleHeaders();
  void RefreshHeaders();
  void Ok();
  void Tell(const std::string& sentence);

  FormatOptionRequest request_;
  FormatOptionModel model_;
  HeaderNames headers_;
  FormatOptionView* view_ = nullptr;
  bool areHeadersShown_ = false;
  bool isShowing_ = false;  // what toolkits tell when a control is changed for them is no command
  bool isWaiting_ = false;  // a box or a spreadsheet is; not every window is disabled meanwhile
};

}  // namespace qv
