#pragma once

#include "dialogs/model/ColumnLists.h"

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace qv {

/// The module that this code, and with it the dialogs' resources, is part of: the library, or a program that
/// holds it. Never the host's.
HINSTANCE OwnModule();

/// A window made from one of the module's own dialog resources.
class DialogWindow {
 public:
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;

  HWND Window() const { return window_; }
  HWND Control(int id) const { return GetDlgItem(window_, id); }

 protected:
  DialogWindow() = default;
  virtual ~DialogWindow() = default;

  /// The result that the dialog was ended with; -1 when it could not be made.
  INT_PTR RunModal(int resource, HWND parent);
  /// False when the window could not be made.
  bool Create(int resource, HWND parent);

  /// The controls are there.
  virtual void Opened() = 0;
  virtual void Commanded(int control, int notification) = 0;
  /// The result is the notification's.
  virtual LRESULT Notified(NMHDR&) { return 0; }
  virtual void Resized() {}
  /// The pause that StartTimer() began is over.
  virtual void TimerEnded() {}
  /// An entry of an owner-drawn list is to be drawn.
  virtual void DrawItem(const DRAWITEMSTRUCT&) const {}

  /// Puts an icon on a button, in the size of the screen's small icons, and its name into a tool tip.
  void SetIcon(int button, int icon, const wchar_t* name);

  /// Returns the tool tip's window.
  HWND AddToolTip(HWND control, const wchar_t* text) const;
  void ChangeToolTip(HWND tip, HWND control, std::wstring text) const;

  /// A font like the control's, but for what `change` does to it.
  struct FontDeleter {
    void operator()(HFONT font) const { DeleteObject(font); }
  };
  using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;
  static OwnedFont FontLike(HWND control, void (*change)(LOGFONTW& font));

  /// Handles Tab, Enter and Escape in this window, of which the modal loop of another dialog knows nothing.
  /// True when that was what the message is.
  bool TakeKeys(MSG& message) const;

  /// Calls TimerEnded() once, so many milliseconds after the last call.
  void StartTimer(unsigned milliseconds) const;

  /// How high a control must be that shows its text in lines of this width.
  int HeightOf(int control, int width) const;
  /// The width of the widest of the texts in the control's font.
  static int WidthOf(HWND control, const std::vector<std::string>& texts);
  std::wstring TextOf(int control) const;
  void FillList(int list, const std::vector<std::string>& texts) const;
  qv::Selection SelectionOf(int list) const;

 private:
  struct IconDeleter {
    void operator()(HICON icon) const { DestroyIcon(icon); }
  };
  using OwnedIcon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM value);

  HWND window_ = nullptr;
  std::vector<OwnedIcon> icons_;
};

}  // namespace qv
