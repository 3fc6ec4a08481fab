#include "manager/FormatOptionDialog.h"
#include "tests/support/TemporaryFolder.h"

#include <QVAssemblyFile/MessageBox.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

// With the dialog module or without, a machine without a display says why there is no dialog and goes on.
TEST(NoDisplayTest, SaysWhyThereIsNoDialog) {
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  unsetenv("XDG_RUNTIME_DIR");
  const TemporaryFolder folder;
  std::string message;
  SetMessageBoxHandler([](const char* text, void* to) { *static_cast<std::string*>(to) += text; }, &message);
  EXPECT_FALSE(ShowFormatOptionDialog({true, "", nullptr, folder / "formats.xml", "", 0}));
  SetMessageBoxHandler(nullptr, nullptr);
  EXPECT_FALSE(message.empty());
  EXPECT_EQ(message, WhyNoFormatOptionDialog());
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
