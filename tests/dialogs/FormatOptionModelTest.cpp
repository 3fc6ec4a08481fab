// What the dialog's cases cannot show, as no window gives it.

#include "dialogs/model/FormatOptionModel.h"

#include "manager/SettingsFile.h"
#include "tests/support/CaseFile.h"
#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

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
  model.SelectSequence({1});
  model.Delete();
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
