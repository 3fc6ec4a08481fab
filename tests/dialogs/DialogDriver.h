#pragma once

#include "dialogs/model/ColumnLists.h"
#include "dialogs/model/FormatOptionView.h"
#include "manager/FormatOptionDialog.h"

#include <QVAssemblyFile/MessageBox.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

/// The controls of the dialog and its windows: what each is, the window that it is in, its number where
/// controls have one, and the text by which it is found elsewhere: on it, before it, or its name.
#define DIALOG_CONTROLS(ROW)                                                            \
  ROW(FormatName, Field, Option, IDC_FORMAT_NAME, "Format Name")                        \
  ROW(SetAsDefault, Box, Option, IDC_DEFAULT, "Set as default form")                    \
  ROW(StartLine, Field, Option, IDC_START_LINE, "Starting reading line:")               \
  ROW(Qualifier, Field, Option, IDC_QUALIFIER, "Text qualifier:")                       \
  ROW(Tab, Box, Option, IDC_TAB, "Tab")                                                 \
  ROW(Semicolon, Box, Option, IDC_SEMICOLON, "Semicolon")                               \
  ROW(Comma, Box, Option, IDC_COMMA, "Comma")                                           \
  ROW(Space, Box, Option, IDC_SPACE, "Space")                                           \
  ROW(Other, Box, Option, IDC_OTHER, "Other")                                           \
  ROW(OtherDelimiters, Field, Option, IDC_OTHER_TEXT, "Other delimiters")               \
  ROW(NameOnly, Box, Option, IDC_NAME_ONLY, "Part Name Only")                           \
  ROW(NameWithPath, Box, Option, IDC_NAME_WITH_PATH, "Part Name With Full Path")        \
  ROW(TreatAsOne, Box, Option, IDC_TREAT_AS_ONE, "Treat consecutive delimiters as one") \
  ROW(PlanItems, List, Option, IDC_PLAN, "Plan items")                                  \
  ROW(Sequence, List, Option, IDC_SEQUENCE, "Item and sequence of one record")          \
  ROW(Add, Button, Option, IDC_ADD, "Add  >  ")                                         \
  ROW(Delete, Button, Option, IDC_DELETE, "<  Delete")                                  \
  ROW(Up, Button, Option, IDC_UP, "Up")                                                 \
  ROW(Down, Button, Option, IDC_DOWN, "Down")                                           \
  ROW(ShowHeader, Button, Option, IDC_TOGGLE_HEADERS, "Show Header")                    \
  ROW(ShowPreview, Button, Option, IDC_TOGGLE_PREVIEW, "Show Preview")                  \
  ROW(Ok, Button, Option, IDOK, "OK")                                                   \
  ROW(Cancel, Button, Option, IDCANCEL, "Cancel")                                       \
  ROW(NameHint, Field, Option, IDC_NAME_HINT, "name-hint")                              \
  ROW(HeaderWindow, Field, Headers, 0, "")                                              \
  ROW(Refresh, Button, Headers, IDC_REFRESH, "Refresh")                                 \
  ROW(Match, Button, Headers, IDC_MATCH, "Match Items")                                 \
  ROW(Headers, List, Headers, IDC_HEADERS, "User Header Items")                         \
  ROW(Preview, Table, Preview, IDC_PREVIEW, "Preview")                                  \
  ROW(Apply, Button, Preview, IDC_APPLY, "Apply")                                       \
  ROW(Summary, Field, Preview, IDC_SUMMARY, "summary")                                  \
  ROW(Suggestion, Field, Preview, IDC_SUGGESTION, "suggestion")

enum class Control {
#define AS_VALUE(name, ...) name,
  DIALOG_CONTROLS(AS_VALUE)
#undef AS_VALUE
};

enum class ControlKind { Field, Box, List, Button, Table };
enum class ControlWindow { Option, Headers, Preview };

struct ControlRow {
  const char* name;
  ControlKind kind;
  ControlWindow window;
  const char* text;
};

inline constexpr ControlRow kControls[] = {
#define AS_ROW(name, kind, window, id, text) {#name, ControlKind::kind, ControlWindow::window, text},
    DIALOG_CONTROLS(AS_ROW)
#undef AS_ROW
};

inline const ControlRow& RowOf(Control control) { return kControls[static_cast<int>(control)]; }

inline constexpr const char* kWindowTitles[] = {"Option", "User Header Items", "Preview"};
inline const char* TitleOf(ControlWindow window) { return kWindowTitles[static_cast<int>(window)]; }

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
  /// Drags entries, which are selected first and of which the mouse takes the first, to the upper half of
  /// another; -1 is below the last. Returns before which entry a mark has been shown meanwhile; -1 for none.
  virtual int Drag(Control from, const qv::Selection& entries, Control to, int place) = 0;
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

  virtual Frame FrameOf(ControlWindow window) = 0;
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

/// Makes a file that nothing can be read of, as long as what is returned lives.
std::shared_ptr<void> MakeBusyFile(const std::string& path);
