#pragma once

#include "dialogs/ColumnLists.h"
#include "manager/FormatOptionDialog.h"

#include <QVAssemblyFile/MessageBox.h>

#include <functional>
#include <string>
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
};

struct Frame {
  int left = 0, top = 0, right = 0, bottom = 0;
};

enum class Key { Enter, Escape };

/// Uses the windows of one toolkit as a person at the screen does, real ones from another thread.
class DialogDriver {
 public:
  virtual ~DialogDriver() = default;

  /// Buttons, boxes and radio buttons.
  virtual void Click(Control control) = 0;
  /// An entry of a combo box's or a drop-down list's list.
  virtual void Choose(Control control, int rank) = 0;
  /// Replaces the text of an edit.
  virtual void Type(Control control, const std::string& text) = 0;
  virtual void Select(Control list, const qv::Selection& ranks) = 0;
  virtual void DoubleClick(Control list, int rank) = 0;
  /// A key that ends the dialog, pressed in one of its controls.
  virtual void Press(Key key, Control focus) = 0;
  virtual void CloseHeaderWindow() = 0;
  /// Waits for a message box, closes it and returns its text.
  virtual std::string DismissMessage() = 0;

  /// The text of an edit or a combo box, the label of a button or box without its mnemonic.
  virtual std::string Text(Control control) = 0;
  virtual std::vector<std::string> Items(Control control) = 0;
  virtual qv::Selection Selected(Control list) = 0;
  virtual bool IsTicked(Control control) = 0;
  virtual bool IsEnabled(Control control) = 0;
  virtual bool IsVisible(Control control) = 0;

  virtual Frame DialogFrame() = 0;
  virtual Frame HeaderWindowFrame() = 0;
  virtual bool IsOpen() = 0;
};

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
