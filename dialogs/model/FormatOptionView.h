#pragma once

#include "dialogs/model/ColumnLists.h"
#include "dialogs/model/OptionControls.h"
#include "dialogs/model/Preview.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

/// What the dialog's controls do.
enum class OptionCommand {
  Edit,          ///< a control that has no command of its own has another value
  SetAsDefault,  ///< the box was ticked or cleared
  TickOther,     ///< so was the box of the other delimiters
  Add,           ///< also a double click in "Plan items"
  Delete,        ///< also a double click in the sequence
  MoveUp,
  MoveDown,
  SelectSequence,  ///< the selection in the sequence has changed
  Undo,
  Redo,
  ToggleHeaders,
  RefreshHeaders,
  SelectHeaders,  ///< the selection in the header window's list has changed
  MatchHeaders,   ///< the sequence that the headings stand for is to be shown
  DeleteFormat,
  TogglePreview,
  ApplySuggestion,
  EndPause,  ///< see FormatOptionView::StartPause()
  Ok,
  Cancel,
};

/// How long a user's hands must rest, in milliseconds, before what is shown of the sample follows.
inline constexpr unsigned kPause = 300;

/// A text in a widget, perhaps with odd bytes replaced there, that comes back as it was unless the user
/// changes it.
template <class WidgetText>
class ShownText {
 public:
  const WidgetText& Show(const std::string& text, WidgetText shown) {
    text_ = text;
    return shown_ = std::move(shown);
  }
  bool IsShown(const WidgetText& widgetText) const { return widgetText == shown_; }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
  WidgetText shown_;
};

/// Takes the number that the text of the start line's edit is. False, with a sentence for the user, for a
/// text that is no whole number. Here, as a view's module links nothing of the library.
inline bool TakeStartLine(std::string_view text, int& line, std::string& complaint) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    complaint = "Please enter a whole number as the starting line.";
    return false;
  }
  line = number;
  return true;
}

/// How many of the entries that a list shows can stay when it is to show others. Only new ones are appended
/// then, which does not disturb a list that is open.
inline std::size_t KeptEntries(const std::vector<std::string>& shown,
                               const std::vector<std::string>& entries) {
  const bool isLonger = entries.size() >= shown.size();
  return isLonger && std::equal(shown.begin(), shown.end(), entries.begin()) ? shown.size() : 0;
}

inline constexpr const char* kTreatAsOneTip =
    "Saved as TreatAsOne=\"1\", which is read back as off.\nTo keep it, put \"true\" there in the format "
    "file.";

/// The text that is to follow a typed one: what all names that begin so go on with.
inline std::string CompletionOf(std::string_view typed, const std::vector<std::string>& names) {
  std::optional<std::string> rest;
  for (const std::string& name : names) {
    if (typed.empty() || !name.starts_with(typed)) continue;
    const std::string own = name.substr(typed.size());
    if (!rest) rest = own;
    rest->erase(std::mismatch(rest->begin(), rest->end(), own.begin(), own.end()).first, rest->end());
  }
  return rest.value_or(std::string());
}

/// The name that a text was completed to, if the rest that was appended is still selected: what Enter takes.
inline std::optional<std::size_t> CompletedName(const std::vector<std::string>& names,
                                                const std::string& text, int selectionBegin,
                                                int selectionEnd) {
  const auto found = std::find(names.begin(), names.end(), text);
  if (selectionBegin <= 0 || selectionEnd <= selectionBegin || found == names.end()) return std::nullopt;
  return static_cast<std::size_t>(found - names.begin());
}

/// The dialog and the windows that stand beside it.
enum class DialogPart { Dialog, Headers, Preview };

/// What the button that shows or hides a window says, with the toolkit's sign before the letter that a key
/// presses it with.
inline std::string ToggleLabel(DialogPart part, bool isShown, char mnemonic) {
  const std::string verb = isShown ? "Hide " : "Show ";
  return part == DialogPart::Headers ? verb + mnemonic + "Header" : verb + "Preview";
}

/// Where a window is on the screen, with what the system puts around it.
struct WindowFrame {
  int left = 0, top = 0, right = 0, bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool operator==(const WindowFrame&) const = default;
};

/// The windows of one toolkit. They hold no rules: they show what they are given and tell what a user did.
class FormatOptionView {
 public:
  virtual ~FormatOptionView() = default;

  /// Moves the controls' values into `controls`. False, with a sentence for the user, when a control holds
  /// nothing that can be used.
  virtual bool TakeControls(OptionControls& controls, std::string& complaint) = 0;
  virtual void ShowControls(const OptionControls& controls) = 0;

  /// Shows beside the combo box what its text leads to.
  virtual void ShowNameHint(const std::string& hint) = 0;
  virtual void ShowFormatNames(const std::vector<std::string>& names) = 0;
  /// None of them is selected then.
  virtual void ShowPlanItems(const std::vector<std::string>& items) = 0;
  /// Greys the plan items for which it is true; they can be selected all the same.
  virtual void ShowUsedPlanItems(const std::vector<bool>& areUsed) = 0;
  /// Leaves the list's scroll position and the keyboard's cursor as they are, except that the entry `cursor`
  /// is brought into sight and takes the cursor.
  virtual void ShowSequence(const std::vector<std::string>& items, const Selection& selection,
                            std::optional<std::size_t> cursor) = 0;
  virtual Selection PlanSelection() const = 0;
  virtual Selection SequenceSelection() const = 0;
  virtual void Enable(const OptionEnabling& enabling) = 0;

  /// Shows the header window or the preview where it is, or hides it, and words its button.
  virtual void ShowWindow(DialogPart part, bool isShown) = 0;
  /// The place of a window; of one that is hidden the size counts.
  virtual WindowFrame FrameOf(DialogPart part) const = 0;
  virtual void Place(DialogPart part, const WindowFrame& frame) = 0;
  /// The part of the dialog's screen that windows can use.
  virtual WindowFrame Screen() const = 0;

  virtual void ShowHeaders(const std::vector<std::string>& headers) = 0;
  virtual void ShowHeaderCaption(const std::string& caption) = 0;
  virtual void SelectHeaders(const Selection& selection) = 0;
  virtual Selection HeaderSelection() const = 0;

  virtual void ShowPreview(const Preview& preview) = 0;

  /// Runs the command EndPause when kPause has passed since the last call.
  virtual void StartPause() = 0;

  /// Tells the user something in a message box.
  virtual void Tell(const std::string& sentence) = 0;
  /// Asks a question in a message box; true for yes.
  virtual bool Ask(const std::string& question) = 0;
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
  /// The list of the combo box was used to choose the format at the index.
  virtual void ChooseFormat(std::size_t index) = 0;
  /// What is selected in one of the lists was dragged before the sequence's entry at `place`.
  virtual void DropOnSequence(bool isFromPlan, std::size_t place) = 0;

  virtual bool OffersHeaders() const = 0;
  virtual bool OffersPreview() const = 0;
};

}  // namespace qv
