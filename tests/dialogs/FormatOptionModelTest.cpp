// What the dialog's cases cannot show, as no window gives it.

#include "dialogs/model/FormatOptionModel.h"
#include "dialogs/model/WindowPlacement.h"

#include "manager/SettingsFile.h"
#include "tests/support/CaseFile.h"
#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>

namespace {

using qv::FormatOptionModel;

OptionForm FormNamed(const std::string& name) {
  OptionForm form;
  form.Name = name;
  form.Items = ItemsOf("PartName=0");
  return form;
}

// Plays the steps of the table. Returns the name that OK stores.
std::string DefaultStoredAfter(const std::string& stored, const std::string& script) {
  const TemporaryFolder folder;
  const std::string settings =
      folder.Write("Setting.ini", "[CsvXlsFormat]\r\nDefaultFormat=" + stored + "\r\n");
  FormatOptionModel model({folder / "formats.xml", settings});
  model.Open("-");
  std::istringstream steps(script);
  for (std::string step; steps >> step;) {
    if (step == "+" || step == "-")
      model.SetAsDefault(step == "+");
    else if (step.front() == '=')
      model.Controls().FormatName = step.substr(1);
    else
      model.ShowForm(FormNamed(step));
  }
  std::string complaint;
  EXPECT_TRUE(model.Ok(complaint)) << complaint;
  return ReadDefaultFormat(settings);
}

TEST(FormatOptionModelTest, WhichFormatIsTheDefault) {
  for (const auto& row : ReadTable("dialogs/tables/default.table"))
    EXPECT_EQ(DefaultStoredAfter(row[0], row[1]), row[2]) << row[0] << ": " << row[1];
}

qv::WindowFrame FrameOf(const std::string& text) {
  qv::WindowFrame frame;
  std::istringstream(text) >> frame.left >> frame.top >> frame.right >> frame.bottom;
  return frame;
}

TEST(FormatOptionModelTest, WindowsBesideTheDialogHideNothing) {
  for (const auto& row : ReadTable("dialogs/tables/placements.table")) {
    SCOPED_TRACE(row[0] + ": " + row[5] + " | " + row[6]);
    const qv::WindowFrame dialog = FrameOf(row[1]), window = FrameOf(row[2]), screen = FrameOf(row[3]);
    const auto headers = row[4].empty() ? std::nullopt : std::optional(FrameOf(row[4]));
    const qv::Placement found = row[0] == "headers" ? PlaceHeaders(dialog, window, screen)
                                                    : PlacePreview(dialog, window, screen, headers);
    EXPECT_EQ(found.dialog, FrameOf(row[5]));
    EXPECT_EQ(found.window, FrameOf(row[6])) << found.window.left << " " << found.window.top << " "
                                             << found.window.right << " " << found.window.bottom;
  }
}

TEST(FormatOptionModelTest, WithoutAPathNothingIsWritten) {
  const TemporaryFolder folder;
  FormatOptionModel model({"", folder / "Setting.ini"});
  EXPECT_EQ(model.Open("New"), "");
  std::string complaint;
  EXPECT_FALSE(model.Ok(complaint));
  EXPECT_NE(complaint.find("was not written"), std::string::npos) << complaint;
  EXPECT_TRUE(folder.Names().empty());
}

TEST(FormatOptionModelTest, NothingIsWrittenBeforeOk) {
  const TemporaryFolder folder;
  const std::string formats = FormatFile("A", FormatElement("A", "PartName=0 Customer=1"));
  const std::string config = folder.Write("formats.xml", formats);
  FormatOptionModel model({config, folder / "Setting.ini"});
  EXPECT_EQ(model.Open(""), "");
  std::string complaint;
  EXPECT_TRUE(model.ShowFormat(99, complaint));
  EXPECT_EQ(model.ShownIndex(), 0U);
  model.Change(&qv::ColumnLists::SelectSequence, qv::Selection{1});
  model.Change(&qv::ColumnLists::Delete);
  model.SetAsDefault(true);
  EXPECT_TRUE(model.StoreForm(complaint)) << complaint;
  EXPECT_EQ(ColumnsOf(model.Formats()[0]), "PartName=0");

  const char* const sentence = "The format name and the other delimiters cannot hold control characters.";
  model.TickOther(true);
  model.Controls().OtherDelimiters = "\x01";
  EXPECT_FALSE(model.Ok(complaint));
  EXPECT_EQ(complaint, sentence);
  EXPECT_FALSE(model.ShowFormat(0, complaint)) << "what cannot be kept stays shown";
  model.TickOther(false);
  model.Controls().FormatName = "a\nb";
  EXPECT_FALSE(model.Ok(complaint));
  EXPECT_EQ(complaint, sentence);
  EXPECT_EQ(TemporaryFolder::Read(config), formats);
  EXPECT_EQ(folder.Names().size(), 1U);

  model.TickOther(true);
  model.Controls().OtherDelimiters = "\t|";
  model.Controls().FormatName = "A";
  EXPECT_TRUE(model.Ok(complaint)) << complaint;
  EXPECT_EQ(FormatOptionModel({config, ""}).Open(""), "");
}

}  // namespace
