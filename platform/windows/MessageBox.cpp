#include <QVAssemblyFile/MessageBox.h>

#include <windows.h>

namespace qv {
namespace {

constexpr const char* kTitle = "QVAssemblyFile";

}  // namespace

// Without an active window of this thread the box stops every window of it instead.
void ShowPlatformMessage(const char* text) {
  const HWND owner = GetActiveWindow();
  MessageBoxA(owner, text, kTitle, owner != nullptr ? MB_OK : MB_OK | MB_TASKMODAL);
}

}  // namespace qv
