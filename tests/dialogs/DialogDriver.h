#pragma once

#include "dialogs/model/ColumnLists.h"
#include "dialogs/model/FormatOptionView.h"
#include "manager/FormatOptionDialog.h"

#include <QVAssemblyFile/MessageBox.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

/// The controls of the dialog and its header window, as a person tells them apart.
enum class Control {
  FormatName,
  SetAsDefault,
  StartLine,
  Qualifier,
  Tab,
  Semicolon,
  Comma,
  Space,
  Other,
  OtherDelimiters,
  NameOnly,
  NameWithPath,
  TreatAsOne,
  PlanItems,
  Sequence,
  Add,
  Delete,
  Up,
  Down,
  ShowHeader,
  Ok,
  Cancel,
  Refresh,
  Headers,
  HeaderWindow,
  ShowPreview,
  Match,
  Apply,
  Preview,
  Summary,
  Suggestion,
  NameHint,
};

using Frame = qv::WindowFrame;

/// A cell of the preview as it is drawn.
struct SeenCell {
  std::string text;
  bool isGrey = false, isStruck = false, isBold = false, isColoured = false;
};

/// Uses the windows of one toolkit as a person at the screen does, real ones from another thread.
class DialogDriver {
 public:
  virtual ~DialogDriver() = default;

  /// Buttons, boxes and radio buttons.
  virtual void Click(Control control) = 0;
  /// An entry of a combo box's or a drop-down list's list.
  virtual void Choose(Control control, int index) = 0;
  /// Types over the text of an edit, or into a list.
  virtual void Type(Control control, const std::string& text) = 0;
  virtual void Select(Control list, const qv::Selection& indexes) = 0;
  virtual void DoubleClick(Control list, int index) = 0;
  /// Drags an entry, which is selected alone first, to the upper half of another; -1 is below the last.
  virtual void Drag(Control from, int entry, Control to, int place) = 0;
  /// Presses a key ("Enter", "Space", "Alt+Up") in a control.
  virtual void Press(Control focus, const std::string& key) = 0;
  /// Turns the mouse's wheel by a step towards the user.
  virtual void TurnWheel(Control control) = 0;
  virtual void CloseHeaderWindow() = 0;
  /// Takes the hands off keyboard and mouse until everything has followed.
  virtual void Rest() = 0;
  /// Chooses so in the combo box's menu, answers the question and returns it.
  virtual std::string DeleteFormat(bool isSure) = 0;
  /// Waits for a message box, closes it and returns its text.
  virtual std::string DismissMessage() = 0;

  /// The text of an edit or a combo box, the label of a button or box without its mnemonic, the caption of a
  /// window.
  virtual std::string Text(Control control) = 0;
  virtual std::vector<std::string> Items(Control control) = 0;
  virtual qv::Selection Selected(Control list) = 0;
  /// Which plan items are grey.
  virtual qv::Selection Grey() = 0;
  /// The entry that the keyboard is at; -1 for none.
  virtual int Cursor(Control list) = 0;
  virtual bool IsInSight(Control list, int index) = 0;
  virtual bool IsTicked(Control control) = 0;
  virtual bool IsEnabled(Control control) = 0;
  virtual bool IsVisible(Control control) = 0;

  /// A row of the preview, with its line's number first; -1 for the heads.
  virtual std::vector<SeenCell> PreviewRow(int row) = 0;
  /// What is said of a cell under the mouse; empty for nothing.
  virtual std::string PreviewTip(int row, int column) = 0;

  virtual Frame DialogFrame() = 0;
  virtual Frame HeaderWindowFrame() = 0;
  virtual Frame PreviewFrame() = 0;
  virtual bool IsOpen() = 0;
};

/// Waits until the windows have become as they should: a key takes its way through the window system, a list
/// scrolls when it is drawn next, and nobody is told when.
template <class Condition>
bool WaitUntil(Condition isSo) {
  for (int attempt = 0; attempt < 1000; ++attempt) {
    if (isSo()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

/// Calls `show`, which shows the dialog until it is closed, and lets `script` use it; a dialog that is still
/// open at the script's end is cancelled. Returns what `show` returned. Messages for the user are appended to
/// `messages`.
bool RunDialog(const std::function<bool()>& show, const std::function<void(DialogDriver&)>& script,
               std::vector<std::string>& messages);

/// What it does with the messages while `run` runs.
inline bool WithMessagesIn(std::vector<std::string>& messages, const std::function<bool()>& run) {
  SetMessageBoxHandler(
      [](const char* text, void* to) { static_cast<std::vector<std::string>*>(to)->emplace_back(text); },
      &messages);
  const bool isOk = run();
  SetMessageBoxHandler(nullptr, nullptr);
  return isOk;
}

/// How the program's dialog is shown.
struct DialogHost {
  std::string toolkit;   ///< of its windows: "win32", "gtk", or "plain" for windows that are not drawn
  std::string settings;  ///< the settings file that it uses
  bool (*show)(const FormatOptionRequest& request);
};
DialogHost TheDialogHost();
