#pragma once

#include "dialogs/ColumnLists.h"
#include "dialogs/OptionControls.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qv {

/// What the dialog's buttons and boxes do.
enum class OptionCommand {
  SetAsDefault,  ///< the box was ticked or cleared
  TickOther,     ///< so was the box of the other delimiters
  Add,           ///< also a double click in "Plan items"
  Delete,        ///< also a double click in the sequence
  MoveUp,
  MoveDown,
  SelectSequence,  ///< the selection in the sequence has changed
  ToggleHeaders,
  RefreshHeaders,
  Ok,
  Cancel,
};

/// The windows of one toolkit. They hold no rules: they show what they are given and tell what a user did.
class FormatOptionView {
 public:
  virtual ~FormatOptionView() = default;

  /// Moves the controls' values into `controls`. False, with a sentence for the user, when a control holds
  /// nothing that can be used.
  virtual bool TakeControls(OptionControls& controls, std::string& complaint) = 0;
  virtual void ShowControls(const OptionControls& controls) = 0;

  virtual void ShowFormatNames(const std::vector<std::string>& names) = 0;
  virtual void ShowPlanItems(const std::vector<std::string>& items) = 0;
  virtual void ShowSequence(const std::vector<std::string>& items, const Selection& selection) = 0;
  virtual Selection PlanSelection() const = 0;
  virtual Selection SequenceSelection() const = 0;
  virtual void Enable(const OptionEnabling& enabling) = 0;

  /// Shows the header window beside the dialog, or hides it, and words the button.
  virtual void ShowHeaderWindow(bool isShown) = 0;
  virtual void ShowHeaders(const std::vector<std::string>& headers) = 0;

  /// Tells the user something in a message box.
  virtual void Tell(const std::string& sentence) = 0;
  virtual void Close(bool isOk) = 0;
};

/// What a toolkit's windows call. All functions are virtual, so that a view may stand in a module of its own
/// that links nothing of this library.
class FormatOptionCommands {
 public:
  virtual ~FormatOptionCommands() = default;

  /// To be called once, when the controls are there.
  virtual void Open(FormatOptionView& view) = 0;
  /// Commands that arise while the view is being filled are not taken for a user's.
  virtual void Run(OptionCommand command) = 0;
  /// The list of the combo box was used to choose the format at the rank.
  virtual void ChooseFormat(std::size_t rank) = 0;

  virtual bool OffersHeaders() const = 0;
};

}  // namespace qv
