#include "dialogs/FormatOptionModel.h"

#include "manager/SettingsFile.h"
#include "tests/dialogs/FormatFileText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

namespace {

using qv::DelimiterBox;
using qv::FormatOptionModel;
using qv::OptionControls;
using qv::PartNameMode;

const std::string kTwoFormats = FormatFile(
    "Second", FormatElement("First", "PartName=0 Customer=1") +
                  FormatElement("Second", "Customer=1 PartName=0 Ignore=2,",
                                R"(Line="7" Delimiters="Semicolon,Other" Other="|#" Qualifier="1" )"
                                R"(TreatAsOne="true" Part="Path")"));

class FormatOptionModelTest : public testing::Test {
 protected:
  FormatOptionModel Opened(const std::string& file, const std::string& formatName = "",
                           const std::string& settings = "") {
    folder_.Write("formats.xml", file);
    if (!settings.empty())
      folder_.Write("Setting.ini", "[CsvXlsFormat]\r\nDefaultFormat=" + settings + "\r\n");
    FormatOptionModel model({config_, settings_});
    remark_ = model.Open(formatName);
    return model;
  }

  TemporaryFolder folder_;
  std::string config_ = folder_ / "formats.xml";
  std::string settings_ = folder_ / "Setting.ini";
  std::string remark_;
  std::string complaint_;
};

TEST_F(FormatOptionModelTest, ShowsTheCurrentFormat) {
  const FormatOptionModel model = Opened(kTwoFormats);
  const OptionControls& shown = model.Controls();
  EXPECT_EQ(remark_, "");
  EXPECT_EQ(model.ShownRank(), 1U);
  EXPECT_EQ(shown.FormatName, "Second");
  EXPECT_EQ(shown.StartLine, 7);
  EXPECT_EQ(shown.Qualifier, 1);
  EXPECT_EQ(shown.Delimiters, (std::array<bool, 5>{false, true, false, false, true}));
  EXPECT_EQ(shown.OtherDelimiters, "|#");
  EXPECT_EQ(shown.PartName, PartNameMode::NameWithFullPath);
  EXPECT_TRUE(shown.TreatAsOne);
  EXPECT_FALSE(shown.SetAsDefault);
  EXPECT_EQ(Joined(model.Columns().Sequence()), "PartName Customer Ignore");
  EXPECT_EQ(model.Columns().PlanItems().size(), 31U);
  EXPECT_TRUE(model.Enabling().OtherDelimiters);
  EXPECT_TRUE(model.Enabling().Sequence);
  EXPECT_FALSE(model.Enabling().Up || model.Enabling().Down || model.Enabling().Delete);
}

TEST_F(FormatOptionModelTest, Opening) {
  const std::string noCurrent = FormatFile("", FormatElement("First", "") + FormatElement("Second", ""));
  const struct {
    std::string what, file, formatName, settings;
    std::string shownName;
    std::size_t shownRank;
    bool isDefault;
  } cases[] = {
      {"the current one", kTwoFormats, "", "", "Second", 1, false},
      {"the caller's", kTwoFormats, "First", "", "First", 0, false},
      {"the default, in capitals", kTwoFormats, "First", "FIRST", "First", 0, true},
      {"another is the default", kTwoFormats, "", "First", "Second", 1, false},
      {"a name that differs in case only is a new format", kTwoFormats, "first", "", "first", 2, false},
      {"no current format", noCurrent, "", "", "First", 0, false},
      {"no formats", FormatFile("", ""), "", "", "", 0, false},
      {"the current one is not there", FormatFile("Gone", FormatElement("First", "")), "", "", "Gone", 1,
       false},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    const FormatOptionModel model = Opened(row.file, row.formatName, row.settings);
    EXPECT_EQ(model.Controls().FormatName, row.shownName);
    EXPECT_EQ(model.ShownRank(), row.shownRank);
    EXPECT_EQ(model.Controls().SetAsDefault, row.isDefault);
    EXPECT_EQ(model.Columns().PlanItems().size(), 31U);
    EXPECT_EQ(remark_, "");
    std::filesystem::remove(settings_);
  }
}

TEST_F(FormatOptionModelTest, AMissingFileIsAnEmptyStart) {
  FormatOptionModel model({config_, settings_});
  EXPECT_EQ(model.Open(""), "");
  EXPECT_EQ(model.Controls().FormatName, "Form1");
  EXPECT_FALSE(std::filesystem::exists(config_));
  ASSERT_TRUE(model.Ok(complaint_)) << complaint_;
  EXPECT_EQ(FormatIn(config_, "Form1").Delimiters, "Tab,Comma,");
}

TEST_F(FormatOptionModelTest, AFileThatOkWouldReplaceUnreadIsTold) {
  for (const char* file :
       {"<CSVOptionSetting Current=", "", "not XML at all", "<Jobs><OptionForm/></Jobs>"}) {
    Opened(file);
    EXPECT_NE(remark_.find("formats.xml\" cannot be read ("), std::string::npos) << file << ": " << remark_;
  }
}

TEST_F(FormatOptionModelTest, WithoutAPathNothingIsWritten) {
  FormatOptionModel model({"", settings_});
  EXPECT_EQ(model.Open("New"), "");
  EXPECT_FALSE(model.Ok(complaint_));
  EXPECT_NE(complaint_.find("was not written"), std::string::npos) << complaint_;
  EXPECT_FALSE(std::filesystem::exists(settings_));
}

TEST_F(FormatOptionModelTest, DelimiterNamesAreFoundAnywhere) {
  const struct {
    const char* stored;
    std::array<bool, 5> boxes;
    const char* afterOk;
  } cases[] = {
      {"", {}, ""},
      {"Tab,Comma", {true, false, true, false, false}, "Tab,Comma,"},
      {"Comma,Tab,", {true, false, true, false, false}, "Tab,Comma,"},
      {"Other,Space,Semicolon", {false, true, false, true, true}, "Semicolon,Space,Other"},
      {"tab;COMMA", {}, ""},
      {"NoTabulator", {true, false, false, false, false}, "Tab,"},
      {"TabSemicolonCommaSpaceOther", {true, true, true, true, true}, "Tab,Semicolon,Comma,Space,Other"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.stored);
    FormatOptionModel model =
        Opened(FormatFile("F", FormatElement("F", "PartName=0",
                                             R"(Line="2" Part="Name" Other="|" Delimiters=")" +
                                                 std::string(row.stored) + "\"")));
    EXPECT_EQ(model.Controls().Delimiters, row.boxes);
    EXPECT_EQ(model.Enabling().OtherDelimiters, row.boxes[4]);
    ASSERT_TRUE(model.Ok(complaint_)) << complaint_;
    EXPECT_EQ(FormatIn(config_, "F").Delimiters, row.afterOk);
    EXPECT_EQ(FormatIn(config_, "F").OtherDelimiters, "|");
  }
}

TEST_F(FormatOptionModelTest, OkWritesWhatTheControlsSay) {
  FormatOptionModel model = Opened(kTwoFormats, "First");
  OptionControls& controls = model.Controls();
  controls.StartLine = 42;
  controls.Qualifier = 2;
  controls.Delimiters = {false, false, false, true, false};
  model.TickOther(true);
  controls.OtherDelimiters = "<&\"";
  controls.PartName = PartNameMode::NameWithFullPath;
  controls.TreatAsOne = true;
  model.SelectPlanItems({2});
  model.Add();
  model.Add();
  model.SelectSequence({3});
  model.MoveUp();
  model.MoveUp();
  EXPECT_EQ(Joined(model.Columns().Sequence()), "PartName Ignore Customer Ignore");
  ASSERT_TRUE(model.Ok(complaint_)) << complaint_;

  const FormatList list = FormatsIn(config_);
  EXPECT_EQ(list.CurrentFormat, "First");
  ASSERT_EQ(list.Formats.size(), 2U);
  const OptionForm& form = list.Formats[0];
  EXPECT_EQ(form.StartLine, 42);
  EXPECT_EQ(form.Qualifier, 2);
  EXPECT_EQ(form.Delimiters, "Space,Other");
  EXPECT_EQ(form.OtherDelimiters, "<&\"");
  EXPECT_EQ(form.PartKey, "Path");
  EXPECT_EQ(ColumnsOf(form), "PartName=0 Customer=2 Ignore=1,3,");
  EXPECT_NE(TemporaryFolder::Read(config_).find("TreatAsOne=\"1\""), std::string::npos);
  // The format that was not edited has its columns, which stand in the file in another order, as before.
  EXPECT_EQ(ColumnsOf(list.Formats[1]), "Customer=1 PartName=0 Ignore=2,");
  EXPECT_EQ(list.Formats[1].StartLine, 7);
}

TEST_F(FormatOptionModelTest, OtherDelimitersAreStoredOnlyWithTheirBox) {
  FormatOptionModel model = Opened(kTwoFormats);
  model.Controls().OtherDelimiters = "new";
  model.TickOther(false);
  EXPECT_FALSE(model.Enabling().OtherDelimiters);
  EXPECT_EQ(model.Form().OtherDelimiters, "|#");
  EXPECT_EQ(model.Form().Delimiters, "Semicolon,");
  model.TickOther(true);
  EXPECT_TRUE(model.Enabling().OtherDelimiters);
  EXPECT_EQ(model.Form().OtherDelimiters, "new");
}

TEST_F(FormatOptionModelTest, AQualifierOfTheFilesOwnSurvives) {
  FormatOptionModel model = Opened(
      FormatFile("F", FormatElement("F", "PartName=0", R"(Line="-3" Delimiters="Tab" Qualifier="7")")));
  EXPECT_EQ(model.Controls().StartLine, -3);
  ASSERT_TRUE(model.Ok(complaint_)) << complaint_;
  EXPECT_EQ(FormatIn(config_, "F").Qualifier, 7);
  EXPECT_EQ(FormatIn(config_, "F").StartLine, -3);
}

TEST_F(FormatOptionModelTest, Names) {
  const std::string longest(99, 'n');
  const struct {
    std::string typed;
    std::string complaint;  // empty: stored
    std::string stored;
  } cases[] = {
      {"Second", "", "Second"},
      {"Third", "", "Third"},
      {" Third\t", "", "Third"},
      {"second", "", "second"},
      {"100 % <b> & \"quoted\" M\xC3\xBCller]", "", "100 % <b> & \"quoted\" M\xC3\xBCller]"},
      {longest, "", longest},
      {longest + "n", "The format name is too long; it can have at most 99 characters.", ""},
      {"", "Please enter a format name.", ""},
      {"  ", "Please enter a format name.", ""},
      {"a\x01", "The format name and the other delimiters cannot hold control characters.", ""},
      {"First",
       "There is a format \"First\" already. Choose it in the list to change it, or enter another name.", ""},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.typed);
    FormatOptionModel model = Opened(kTwoFormats, "", "First");
    const std::string settingsBefore = TemporaryFolder::Read(settings_);
    model.Controls().FormatName = row.typed;
    model.Controls().StartLine = 55;
    model.SetAsDefault(true);
    complaint_.clear();
    EXPECT_EQ(model.Ok(complaint_), row.complaint.empty());
    EXPECT_EQ(complaint_, row.complaint);
    if (!row.complaint.empty()) {
      EXPECT_EQ(TemporaryFolder::Read(config_), kTwoFormats);
      EXPECT_EQ(TemporaryFolder::Read(settings_), settingsBefore);
      continue;
    }
    const FormatList list = FormatsIn(config_);
    EXPECT_EQ(list.CurrentFormat, row.stored);
    EXPECT_EQ(FormatIn(config_, row.stored).StartLine, 55);
    EXPECT_EQ(FormatIn(config_, "First").StartLine, 2);
    EXPECT_EQ(FormatIn(config_, "Second").StartLine, row.stored == "Second" ? 55 : 7);
    EXPECT_EQ(ReadDefaultFormat(settings_), row.stored);
  }
}

TEST_F(FormatOptionModelTest, AFileThatCannotBeWrittenLosesNothing) {
  FormatOptionModel model = Opened(kTwoFormats, "", "Second");
  const std::string settingsBefore = TemporaryFolder::Read(settings_);
  // A folder in the file's place cannot be replaced by a file, not even by a privileged user.
  std::filesystem::rename(config_, folder_ / "aside.xml");
  std::filesystem::create_directories(config_ + "/in the way");

  model.Controls().FormatName = "New";
  model.SetAsDefault(true);
  model.Controls().StartLine = 9;
  EXPECT_FALSE(model.Ok(complaint_));
  EXPECT_NE(complaint_.find("formats.xml\" was not written ("), std::string::npos) << complaint_;
  EXPECT_EQ(TemporaryFolder::Read(settings_), settingsBefore);
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{"Setting.ini", "aside.xml", "formats.xml"}));

  // What was entered is still there, and the same OK works as soon as the file can be written.
  std::filesystem::remove_all(config_);
  std::filesystem::rename(folder_ / "aside.xml", config_);
  ASSERT_TRUE(model.Ok(complaint_)) << complaint_;
  EXPECT_EQ(FormatIn(config_, "New").StartLine, 9);
  EXPECT_EQ(ReadDefaultFormat(settings_), "New");
}

TEST_F(FormatOptionModelTest, NothingIsWrittenBeforeOk) {
  FormatOptionModel model = Opened(kTwoFormats, "", "First");
  const std::string settingsBefore = TemporaryFolder::Read(settings_);
  model.SelectSequence({1});
  model.Delete();
  model.SetAsDefault(true);
  model.ShowFormat(0);
  model.SetAsDefault(false);
  EXPECT_TRUE(model.StoreForm(complaint_));
  EXPECT_EQ(TemporaryFolder::Read(config_), kTwoFormats);
  EXPECT_EQ(TemporaryFolder::Read(settings_), settingsBefore);
}

TEST_F(FormatOptionModelTest, ShowingAFormatForgetsEditsAndSelections) {
  FormatOptionModel model = Opened(kTwoFormats, "First");
  model.Controls().StartLine = 9;
  model.SelectSequence({1});
  EXPECT_TRUE(model.Enabling().Up);
  model.ShowFormat(1);
  EXPECT_FALSE(model.Enabling().Up || model.Enabling().Down || model.Enabling().Delete);
  model.ShowFormat(0);
  EXPECT_EQ(model.Controls().StartLine, 2);
  EXPECT_EQ(Joined(model.Columns().Sequence()), "PartName Customer");
  model.ShowFormat(99);
  EXPECT_EQ(model.ShownRank(), 0U);
}

TEST_F(FormatOptionModelTest, AnEmptySequenceCannotBeUsedUntilSomethingIsAdded) {
  FormatOptionModel model = Opened(FormatFile("F", FormatElement("F", "PartName")));
  EXPECT_FALSE(model.Enabling().Sequence);
  model.SelectPlanItems({0});
  model.Add();
  EXPECT_TRUE(model.Enabling().Sequence);
  EXPECT_TRUE(model.Enabling().Down);
  EXPECT_FALSE(model.Enabling().Up || model.Enabling().Delete);
  model.MoveDown();
  EXPECT_EQ(Joined(model.Columns().Sequence()), "PartName");
}

TEST_F(FormatOptionModelTest, WhatStoodBetweenTheItemsDoesNotKeepTheFileFromBeingWritten) {
  const std::string commented = FormatFile(
      "B",
      "<!-- top --><OptionForm Name=\"A\" Line=\"2\"><!-- first --><PartName Order=\"0\"/>text"
      "<![CDATA[x]]></OptionForm><OptionForm Name=\"B\"><!-- b --><Customer Order=\"0\"/></OptionForm>");
  FormatOptionModel model = Opened(commented);
  EXPECT_EQ(Joined(model.Columns().Sequence()), "Customer");
  ASSERT_TRUE(model.Ok(complaint_)) << complaint_;
  EXPECT_EQ(ColumnsOf(FormatIn(config_, "A")), "PartName=0");
  EXPECT_EQ(ColumnsOf(FormatIn(config_, "B")), "Customer=0");
  EXPECT_EQ(FormatIn(config_, "A").StartLine, 2);
}

}  // namespace
