// What the dialog's cases cannot show, as no window gives it.

#include "dialogs/FormatOptionModel.h"

#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

using qv::FormatOptionModel;

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
  model.ShowFormat(99);
  EXPECT_EQ(model.ShownRank(), 0U);
  model.SelectSequence({1});
  model.Delete();
  model.SetAsDefault(true);
  std::string complaint;
  EXPECT_TRUE(model.StoreForm(complaint)) << complaint;
  EXPECT_EQ(ColumnsOf(model.Formats()[0]), "PartName=0");

  const char* const sentence = "The format name and the other delimiters cannot hold control characters.";
  model.TickOther(true);
  model.Controls().OtherDelimiters = "\x01";
  EXPECT_FALSE(model.Ok(complaint));
  EXPECT_EQ(complaint, sentence);
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
