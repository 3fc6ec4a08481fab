#include "dialogs/model/Sample.h"
#include "manager/FormatOptionDialog.h"
#include "tests/support/TemporaryFolder.h"

#include <QVAssemblyFile/MessageBox.h>

#include <gtest/gtest.h>

#include <sys/stat.h>

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

// Nothing is read of it, as its bytes may never come.
TEST(NoDisplayTest, APipeIsNoSample) {
  const TemporaryFolder folder;
  const std::string pipe = folder / "jobs.csv";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  qv::Sample sample(pipe);
  sample.Read();
  EXPECT_EQ(sample.Trouble(), "the sample is a pipe or device");
  EXPECT_EQ(sample.Try({}).preview.summary, sample.Trouble());
  EXPECT_TRUE(sample.Headers({}).empty());
}

}  // namespace
