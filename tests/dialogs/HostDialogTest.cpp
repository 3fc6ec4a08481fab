// The dialog as a host opens it: through the shared library's manager.

#include "support/TemporaryFolder.h"
#include "tests/dialogs/DialogDriver.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

std::string FileOf(const std::string& names) {
  std::string file = "<?xml version=\"1.0\"?><CSVOptionSetting Current=\"A\">";
  for (const char name : names)
    file += std::string("<OptionForm Name=\"") + name +
            "\" Line=\"2\" Delimiters=\"Comma\" Part=\"Name\"><PartName Order=\"0\"/></OptionForm>";
  return file + "</CSVOptionSetting>";
}

TEST(HostDialogTest, TheManagerTakesTheFormatsOverOnOkOnly) {
  const TemporaryFolder folder;
  const std::string config = folder.Write("formats.xml", FileOf("AB"));
  CAssemblyFileMgr manager;
  ASSERT_TRUE(manager.LoadFormatConfiguration(config.c_str()));
  std::vector<std::string> messages;
  char name[100] = "B";
  const auto show = [&] {
    manager.ASSOptionDlgShow(true, name, nullptr, config.c_str(), nullptr, 7);
    return true;
  };

  // Another program has changed the file meanwhile, so that a reload can be seen.
  folder.Write("formats.xml", FileOf("ABC"));
  RunDialog(
      show, [](DialogDriver& dialog) { dialog.Click(Control::Cancel); }, messages);
  EXPECT_EQ(manager.GetFormatsCount(), 2);

  RunDialog(
      show,
      [](DialogDriver& dialog) {
        EXPECT_EQ(dialog.Text(Control::FormatName), "B");
        EXPECT_TRUE(dialog.IsVisible(Control::ShowHeader));
        dialog.Type(Control::FormatName, "New");
        dialog.Type(Control::StartLine, "12");
        dialog.Click(Control::Ok);
      },
      messages);
  EXPECT_EQ(manager.GetFormatsCount(), 4);
  manager.GetCurrentFormat(name);
  EXPECT_STREQ(name, "New");
  EXPECT_EQ(manager.GetStartLine(), 12);
  EXPECT_TRUE(messages.empty());
}

// The dialog runs in a loop of the window system, through which no exception may pass.
TEST(HostDialogTest, AnExceptionOfAHandlerClosesTheDialogAndReachesTheHost) {
  const TemporaryFolder folder;
  const std::string formats = FileOf("A");
  const std::string config = folder.Write("formats.xml", formats);
  CAssemblyFileMgr manager;
  std::string caught;
  const auto show = [&] {
    try {
      manager.ASSOptionDlgShow(true, nullptr, nullptr, config.c_str(), nullptr, 0);
    } catch (const std::runtime_error& error) {
      caught = error.what();
    }
    return true;
  };
  std::vector<std::string> messages;
  RunDialog(
      show,
      [](DialogDriver& dialog) {
        dialog.Type(Control::FormatName, "");
        SetMessageBoxHandler([](const char* text, void*) { throw std::runtime_error(text); }, nullptr);
        dialog.Click(Control::Ok);
      },
      messages);
  EXPECT_EQ(caught, "Please enter a format name.");
  EXPECT_EQ(TemporaryFolder::Read(config), formats);
}

}  // namespace
