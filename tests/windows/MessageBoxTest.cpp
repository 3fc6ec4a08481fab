#include <QVAssemblyFile/QVAssemblyFile.h>

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <thread>

namespace {

// What a person sees of a message box.
struct SeenBox {
  std::string text;
  int buttons = 0;
  bool hasIcon = false;
  HWND owner = nullptr;
};

BOOL CALLBACK LookAtControl(HWND control, LPARAM value) {
  auto& seen = *reinterpret_cast<SeenBox*>(value);
  char className[32] = "";
  GetClassNameA(control, className, sizeof className);
  const LONG_PTR style = GetWindowLongPtrA(control, GWL_STYLE);
  if (std::string(className) == "Button" && (style & WS_VISIBLE) != 0) {
    ++seen.buttons;
  } else if (std::string(className) == "Static" && (style & SS_TYPEMASK) == SS_ICON) {
    seen.hasIcon = seen.hasIcon || SendMessageA(control, STM_GETICON, 0, 0) != 0;
  } else if (std::string(className) == "Static") {
    char text[256] = "";
    GetWindowTextA(control, text, sizeof text);
    seen.text += text;
  }
  return TRUE;
}

HWND FindBoxOfThisProcess() {
  for (HWND box = nullptr; (box = FindWindowExA(nullptr, box, "#32770", nullptr)) != nullptr;) {
    DWORD process = 0;
    GetWindowThreadProcessId(box, &process);
    if (process == GetCurrentProcessId() && IsWindowVisible(box)) return box;
  }
  return nullptr;
}

// Waits for the box, looks at it and presses its button, as a person does.
SeenBox CloseNextBox() {
  SeenBox seen;
  for (int attempt = 0; attempt < 1000; ++attempt, Sleep(10)) {
    const HWND box = FindBoxOfThisProcess();
    if (box == nullptr) continue;
    EnumChildWindows(box, LookAtControl, reinterpret_cast<LPARAM>(&seen));
    seen.owner = GetWindow(box, GW_OWNER);
    SendMessageA(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    break;
  }
  return seen;
}

TEST(MessageBoxTest, IsARealOneOfTheActiveWindowThatAPersonCloses) {
  const HWND window = CreateWindowA("Static", "host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                                    nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  SetActiveWindow(window);
  ASSERT_EQ(GetActiveWindow(), window);
  SeenBox seen;
  std::thread person([&] { seen = CloseNextBox(); });
  CAssemblyFileMgr manager;
  char path[] = "C:\\parts.xlsx";
  EXPECT_FALSE(manager.ImportAssemblyFile(path));
  person.join();
  EXPECT_EQ(seen.text, "File Format Error!");
  EXPECT_EQ(seen.buttons, 1);
  EXPECT_FALSE(seen.hasIcon);
  EXPECT_EQ(seen.owner, window);
  EXPECT_TRUE(IsWindowEnabled(window)) << "the host goes on afterwards";
  DestroyWindow(window);
}

}  // namespace
