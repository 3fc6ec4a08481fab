// The real windows, used control by control. One set of cases for every toolkit.

#include "manager/FormatOptionDialog.h"
#include "manager/SettingsFile.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/FormatFileText.h"
#include "tests/support/FakeSpreadsheet.h"
#include "tests/support/TemporaryFolder.h"

#include <QVAssemblyFile/MessageBox.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Words = std::vector<std::string>;
using Ranks = qv::Selection;
using D = DialogDriver;

// The plan of both formats starts with these items, so that their ranks are known.
constexpr const char* kFirstColumns = "Ignore PartName=0 Customer=1 Machine=2 Revision ID C-CutPunch";
constexpr const char* kSecondColumns = "Ignore=1, ID=0 PartName Customer=2 RectangularTrueShape=3";

const std::string kFile = FormatFile(
    "First", FormatElement("First", kFirstColumns) +
                 FormatElement("Second", kSecondColumns,
                               R"(Line="100" Delimiters="Semicolon,Other" Other="|" Qualifier="2" )"
                               R"(TreatAsOne="true" Part="Path")"));

std::string Flags(D& dialog, std::initializer_list<Control> controls, bool (D::*test)(Control)) {
  std::string flags;
  for (const Control control : controls) flags += (dialog.*test)(control) ? '1' : '0';
  return flags;
}

constexpr std::initializer_list<Control> kBoxes = {Control::Tab, Control::Semicolon, Control::Comma,
                                                   Control::Space, Control::Other};
constexpr std::initializer_list<Control> kListButtons = {Control::Delete, Control::Up, Control::Down};

std::string Summary(const OptionForm& form) {
  return std::to_string(form.StartLine) + " " + form.Delimiters + " [" + form.OtherDelimiters + "] " +
         std::to_string(form.Qualifier) + " " + form.PartKey + ": " + ColumnsOf(form);
}

class DialogTest : public testing::Test {
 protected:
  DialogTest() {
    std::filesystem::create_directories(std::filesystem::path(settings_).parent_path());
    std::filesystem::remove(settings_);
    Restore();
  }
  ~DialogTest() override { std::filesystem::remove(settings_); }

  void Restore() { folder_.Write("formats.xml", kFile); }
  void SetDefault(const std::string& name) {
    std::ofstream(settings_, std::ios::binary)
        << "[Other]\r\nKey=Value\r\n[CsvXlsFormat]\r\nDefaultFormat=" << name << "\r\n";
  }
  FormatOptionRequest Request() const { return {true, "", nullptr, config_, sample_, 0}; }
  bool Run(const std::function<void(D&)>& script) {
    return RunDialog([this] { return ShowFormatOptionDialog(Request()); }, script, messages_);
  }

  TemporaryFolder folder_;
  std::string config_ = folder_ / "formats.xml";
  std::string sample_;
  std::string settings_ = SettingsFilePath();
  std::vector<std::string> messages_;
};

TEST_F(DialogTest, ShowsItsTextsAndTheCurrentFormat) {
  SetDefault("FIRST");
  Run([](D& dialog) {
    EXPECT_EQ(dialog.DialogTitle(), "Option");
    EXPECT_EQ(dialog.HeaderWindowTitle(), "User Header Items");
    EXPECT_FALSE(dialog.IsHeaderWindowVisible());
    const std::pair<Control, const char*> labels[] = {
        {Control::SetAsDefault, "Set as default form"},
        {Control::Tab, "Tab"},
        {Control::Semicolon, "Semicolon"},
        {Control::Comma, "Comma"},
        {Control::Space, "Space"},
        {Control::Other, "Other"},
        {Control::NameOnly, "Part Name Only"},
        {Control::NameWithPath, "Part Name With Full Path"},
        {Control::TreatAsOne, "Treat consecutive delimiters as one"},
        {Control::Add, "Add  >  "},
        {Control::Delete, "<  Delete"},
        {Control::ShowHeader, "Show Header"},
        {Control::Ok, "OK"},
        {Control::Cancel, "Cancel"},
    };
    for (const auto& [control, label] : labels) EXPECT_EQ(dialog.Text(control), label);
    EXPECT_EQ(dialog.Items(Control::FormatName), (Words{"First", "Second"}));
    EXPECT_EQ(dialog.Items(Control::Qualifier),
              (Words{"Double quotation marks", "Single quotation marks", "None"}));

    EXPECT_EQ(dialog.Text(Control::FormatName), "First");
    EXPECT_TRUE(dialog.IsTicked(Control::SetAsDefault));
    EXPECT_EQ(dialog.Text(Control::StartLine), "2");
    EXPECT_EQ(dialog.Chosen(Control::Qualifier), 0);
    EXPECT_EQ(Flags(dialog, kBoxes, &D::IsTicked), "10100");
    EXPECT_FALSE(dialog.IsEnabled(Control::OtherDelimiters));
    EXPECT_TRUE(dialog.IsTicked(Control::NameOnly));
    EXPECT_FALSE(dialog.IsTicked(Control::TreatAsOne));
    EXPECT_EQ(dialog.Items(Control::PlanItems).size(), 32U);
    EXPECT_EQ(dialog.Items(Control::PlanItems)[6], "C-Cut/Punch");
    EXPECT_EQ(dialog.Items(Control::Sequence), (Words{"PartName", "Customer", "Machine"}));
    EXPECT_EQ(Flags(dialog, kListButtons, &D::IsEnabled), "000");
    EXPECT_TRUE(dialog.IsVisible(Control::ShowHeader));
  });
}

TEST_F(DialogTest, SelectionChangeShowsTheFormat) {
  SetDefault("second");
  Run([](D& dialog) {
    EXPECT_FALSE(dialog.IsTicked(Control::SetAsDefault));
    dialog.Type(Control::StartLine, "77");
    dialog.Select(Control::Sequence, {1});
    dialog.Choose(Control::FormatName, 1);
    EXPECT_EQ(dialog.Text(Control::FormatName), "Second");
    EXPECT_TRUE(dialog.IsTicked(Control::SetAsDefault));
    EXPECT_EQ(dialog.Text(Control::StartLine), "100");
    EXPECT_EQ(dialog.Chosen(Control::Qualifier), 2);
    EXPECT_EQ(Flags(dialog, kBoxes, &D::IsTicked), "01001");
    EXPECT_TRUE(dialog.IsEnabled(Control::OtherDelimiters));
    EXPECT_EQ(dialog.Text(Control::OtherDelimiters), "|");
    EXPECT_TRUE(dialog.IsTicked(Control::NameWithPath));
    EXPECT_TRUE(dialog.IsTicked(Control::TreatAsOne));
    EXPECT_EQ(dialog.Items(Control::Sequence), (Words{"ID", "Ignore", "Customer", "Rectangular/TrueShape"}));
    EXPECT_EQ(Flags(dialog, kListButtons, &D::IsEnabled), "000");
    dialog.Choose(Control::FormatName, 0);
    EXPECT_EQ(dialog.Text(Control::StartLine), "2");
  });
}

// What a command leaves in the sequence, which of Delete, Up and Down can be used then, and what OK writes.
TEST_F(DialogTest, ColumnCommands) {
  const struct {
    const char* what;
    void (*use)(D&);
    Words sequence;
    Ranks selection;
    const char* buttons;
    const char* columns;
  } cases[] = {
      {"Add",
       [](D& d) {
         d.Select(Control::PlanItems, {0, 2, 4}), d.Click(Control::Add);
       },
       {"PartName", "Customer", "Machine", "Ignore", "Revision"},
       {},
       "001",
       "Ignore=3, PartName=0 Customer=1 Machine=2 Revision=4"},
      {"Add twice",
       [](D& d) {
         d.Select(Control::PlanItems, {0, 6}), d.Click(Control::Add), d.Click(Control::Add);
       },
       {"PartName", "Customer", "Machine", "Ignore", "C-Cut/Punch", "Ignore"},
       {},
       "001",
       "Ignore=3,5, PartName=0 Customer=1 Machine=2 C-CutPunch=4"},
      {"double clicks in the plan",
       [](D& d) { d.DoubleClick(Control::PlanItems, 4), d.DoubleClick(Control::PlanItems, 1); },
       {"PartName", "Customer", "Machine", "Revision"},
       {},
       "001",
       "PartName=0 Customer=1 Machine=2 Revision=3"},
      {"Delete",
       [](D& d) { d.Select(Control::Sequence, {1}), d.Click(Control::Delete); },
       {"PartName", "Machine"},
       {},
       "000",
       "PartName=0 Machine=1"},
      {"the key column cannot be deleted",
       [](D& d) { d.Select(Control::Sequence, {0}); },
       {"PartName", "Customer", "Machine"},
       {0},
       "001",
       "PartName=0 Customer=1 Machine=2"},
      {"nor by a double click",
       [](D& d) { d.DoubleClick(Control::Sequence, 0); },
       {"PartName", "Customer", "Machine"},
       {0},
       "001",
       "PartName=0 Customer=1 Machine=2"},
      {"nor among others",
       [](D& d) {
         d.Select(Control::Sequence, {0, 1, 2}), d.Click(Control::Delete);
       },
       {"PartName"},
       {0},
       "000",
       "PartName=0"},
      {"nor is ID",
       [](D& d) {
         d.DoubleClick(Control::PlanItems, 5);
         d.Select(Control::Sequence, {2, 3});
         d.Click(Control::Delete);
       },
       {"PartName", "Customer", "ID"},
       {2},
       "010",
       "PartName=0 Customer=1 ID=2"},
      {"a double click in the sequence",
       [](D& d) { d.DoubleClick(Control::Sequence, 2); },
       {"PartName", "Customer"},
       {},
       "000",
       "PartName=0 Customer=1"},
      {"Up",
       [](D& d) { d.Select(Control::Sequence, {2}), d.Click(Control::Up); },
       {"PartName", "Machine", "Customer"},
       {1},
       "111",
       "PartName=0 Customer=2 Machine=1"},
      {"Up to the top",
       [](D& d) { d.Select(Control::Sequence, {2}), d.Click(Control::Up), d.Click(Control::Up); },
       {"Machine", "PartName", "Customer"},
       {0},
       "101",
       "PartName=1 Customer=2 Machine=0"},
      {"Down",
       [](D& d) { d.Select(Control::Sequence, {0}), d.Click(Control::Down); },
       {"Customer", "PartName", "Machine"},
       {1},
       "011",
       "PartName=1 Customer=0 Machine=2"},
      {"Down to the end",
       [](D& d) { d.Select(Control::Sequence, {1}), d.Click(Control::Down); },
       {"PartName", "Machine", "Customer"},
       {2},
       "110",
       "PartName=0 Customer=2 Machine=1"},
      {"several selected",
       [](D& d) {
         d.Select(Control::Sequence, {1, 2});
       },
       {"PartName", "Customer", "Machine"},
       {1, 2},
       "100",
       "PartName=0 Customer=1 Machine=2"},
      {"none selected any more",
       [](D& d) { d.Select(Control::Sequence, {1}), d.Select(Control::Sequence, {}); },
       {"PartName", "Customer", "Machine"},
       {},
       "000",
       "PartName=0 Customer=1 Machine=2"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    Restore();
    EXPECT_TRUE(Run([&row](D& dialog) {
      row.use(dialog);
      EXPECT_EQ(dialog.Items(Control::Sequence), row.sequence);
      EXPECT_EQ(dialog.Selected(Control::Sequence), row.selection);
      EXPECT_EQ(Flags(dialog, kListButtons, &D::IsEnabled), row.buttons);
      EXPECT_TRUE(dialog.IsEnabled(Control::Sequence));
      dialog.Click(Control::Ok);
    }));
    EXPECT_EQ(ColumnsOf(FormatIn(config_, "First")), row.columns);
    EXPECT_EQ(ColumnsOf(FormatIn(config_, "Second")), "Ignore=1, ID=0 Customer=2 RectangularTrueShape=3");
  }
}

TEST_F(DialogTest, OkWritesTheControls) {
  const struct {
    const char* what;
    void (*use)(D&);
    const char* first;
  } cases[] = {
      {"nothing", [](D&) {}, "2 Tab,Comma, [] 0 Name: PartName=0 Customer=1 Machine=2"},
      {"start line", [](D& d) { d.Type(Control::StartLine, "35"); },
       "35 Tab,Comma, [] 0 Name: PartName=0 Customer=1 Machine=2"},
      {"a start line beyond the arrows", [](D& d) { d.Type(Control::StartLine, "250"); },
       "250 Tab,Comma, [] 0 Name: PartName=0 Customer=1 Machine=2"},
      {"qualifier", [](D& d) { d.Choose(Control::Qualifier, 1); },
       "2 Tab,Comma, [] 1 Name: PartName=0 Customer=1 Machine=2"},
      {"no delimiter", [](D& d) { d.Click(Control::Tab), d.Click(Control::Comma); },
       "2  [] 0 Name: PartName=0 Customer=1 Machine=2"},
      {"every delimiter",
       [](D& d) {
         d.Click(Control::Other);
         EXPECT_TRUE(d.IsEnabled(Control::OtherDelimiters));
         d.Type(Control::OtherDelimiters, "|#");
         d.Click(Control::Space);
         d.Click(Control::Semicolon);
       },
       "2 Tab,Semicolon,Comma,Space,Other [|#] 0 Name: PartName=0 Customer=1 Machine=2"},
      {"Other ticked and cleared",
       [](D& d) {
         d.Click(Control::Other);
         d.Type(Control::OtherDelimiters, "|#");
         d.Click(Control::Other);
         EXPECT_FALSE(d.IsEnabled(Control::OtherDelimiters));
       },
       "2 Tab,Comma, [] 0 Name: PartName=0 Customer=1 Machine=2"},
      {"part name", [](D& d) { d.Click(Control::NameWithPath); },
       "2 Tab,Comma, [] 0 Path: PartName=0 Customer=1 Machine=2"},
      {"part name and back", [](D& d) { d.Click(Control::NameWithPath), d.Click(Control::NameOnly); },
       "2 Tab,Comma, [] 0 Name: PartName=0 Customer=1 Machine=2"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    Restore();
    EXPECT_TRUE(Run([&row](D& dialog) {
      row.use(dialog);
      dialog.Click(Control::Ok);
    }));
    EXPECT_EQ(Summary(FormatIn(config_, "First")), row.first);
    EXPECT_EQ(FormatsIn(config_).CurrentFormat, "First");
    // The library reads a flag that it wrote as cleared.
    EXPECT_EQ(Summary(FormatIn(config_, "Second")),
              "100 Semicolon,Other [|] 2 Path: Ignore=1, ID=0 Customer=2 RectangularTrueShape=3");
  }
  // Enter is OK, and nothing else, wherever the focus is.
  for (const Control focus :
       {Control::StartLine, Control::TreatAsOne, Control::NameOnly, Control::PlanItems}) {
    Restore();
    EXPECT_TRUE(Run([focus](D& dialog) {
      dialog.Click(Control::TreatAsOne);
      dialog.Press(Key::Enter, focus);
    }));
    EXPECT_NE(TemporaryFolder::Read(config_).find("TreatAsOne=\"1\" Part=\"Name\""), std::string::npos);
    EXPECT_EQ(ColumnsOf(FormatIn(config_, "First")), "PartName=0 Customer=1 Machine=2");
  }
  EXPECT_TRUE(messages_.empty());
}

TEST_F(DialogTest, TheDefaultFormat) {
  const struct {
    const char* stored;
    void (*use)(D&);
    const char* expected;
  } cases[] = {
      {"", [](D&) {}, ""},
      {"", [](D& d) { d.Click(Control::SetAsDefault); }, "First"},
      {"", [](D& d) { d.Click(Control::SetAsDefault), d.Click(Control::SetAsDefault); }, ""},
      {"first", [](D& d) { d.Click(Control::SetAsDefault); }, ""},
      {"Second", [](D&) {}, "Second"},
      {"Second", [](D& d) { d.Click(Control::SetAsDefault); }, "First"},
      {"Second", [](D& d) { d.Click(Control::SetAsDefault), d.Choose(Control::FormatName, 1); }, "First"},
      {"Second", [](D& d) { d.Choose(Control::FormatName, 1), d.Click(Control::SetAsDefault); }, ""},
  };
  for (const auto& row : cases) {
    SetDefault(row.stored);
    EXPECT_TRUE(Run([&row](D& dialog) {
      row.use(dialog);
      dialog.Click(Control::Ok);
    }));
    EXPECT_EQ(ReadDefaultFormat(settings_), row.expected) << row.stored;
    EXPECT_NE(TemporaryFolder::Read(settings_).find("[Other]\r\nKey=Value\r\n"), std::string::npos);
  }
}

TEST_F(DialogTest, CancelLeavesBothFilesByteForByte) {
  SetDefault("Second");
  const std::string settingsBefore = TemporaryFolder::Read(settings_);
  const std::function<void(D&)> ends[] = {[](D& d) { d.Click(Control::Cancel); },
                                          [](D& d) { d.Press(Key::Escape, Control::StartLine); }, [](D&) {}};
  for (const auto& end : ends) {
    EXPECT_FALSE(Run([&end](D& dialog) {
      dialog.Click(Control::SetAsDefault);
      dialog.Type(Control::StartLine, "9");
      dialog.Click(Control::Tab);
      dialog.Select(Control::Sequence, {1});
      dialog.Click(Control::Delete);
      dialog.Click(Control::ShowHeader);
      dialog.Type(Control::FormatName, "New");
      end(dialog);
    }));
    EXPECT_EQ(TemporaryFolder::Read(config_), kFile);
    EXPECT_EQ(TemporaryFolder::Read(settings_), settingsBefore);
  }
  std::filesystem::remove(settings_);
  EXPECT_FALSE(Run([](D& dialog) { dialog.Click(Control::Cancel); }));
  EXPECT_FALSE(std::filesystem::exists(settings_));
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"formats.xml"});
}

TEST_F(DialogTest, ANewNameMakesANewFormat) {
  EXPECT_TRUE(Run([](D& dialog) {
    dialog.Type(Control::FormatName, "M\xC3\xBCller");
    dialog.Type(Control::StartLine, "5");
    EXPECT_EQ(dialog.Items(Control::Sequence), (Words{"PartName", "Customer", "Machine"}));
    dialog.Click(Control::SetAsDefault);
    dialog.Click(Control::Ok);
  }));
  const FormatList list = FormatsIn(config_);
  ASSERT_EQ(list.Formats.size(), 3U);
  EXPECT_EQ(list.Formats[0].StartLine, 2);
  EXPECT_EQ(list.Formats[2].StartLine, 5);
  EXPECT_EQ(list.CurrentFormat, list.Formats[2].Name);
  EXPECT_EQ(ReadDefaultFormat(settings_), list.CurrentFormat);
}

TEST_F(DialogTest, WhatCannotBeStoredIsToldAndCorrected) {
  const struct {
    const char* what;
    Control control;
    std::string text;
    const char* message;
  } cases[] = {
      {"no name", Control::FormatName, "", "Please enter a format name."},
      {"a name too long", Control::FormatName, std::string(100, 'x'),
       "The format name is too long; it can have at most 99 characters."},
      {"another format's name", Control::FormatName, "Second",
       "There is a format \"Second\" already. Choose it in the list to change it, or enter another name."},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    Restore();
    messages_.clear();
    EXPECT_TRUE(Run([this, &row](D& dialog) {
      dialog.Click(Control::Comma);
      dialog.Type(row.control, row.text);
      dialog.Click(Control::Ok);
      EXPECT_TRUE(dialog.IsOpen());
      EXPECT_EQ(messages_, Words{row.message});
      EXPECT_EQ(TemporaryFolder::Read(config_), kFile);
      EXPECT_FALSE(std::filesystem::exists(settings_));
      EXPECT_FALSE(dialog.IsTicked(Control::Comma));
      dialog.Type(row.control, "Corrected");
      dialog.Click(Control::Ok);
    }));
    EXPECT_EQ(FormatIn(config_, "Corrected").Delimiters, "Tab,");
    std::filesystem::remove(settings_);
  }
}

TEST_F(DialogTest, WithoutAHandlerAMessageIsAWindow) {
  EXPECT_TRUE(Run([](D& dialog) {
    SetMessageBoxHandler(nullptr, nullptr);
    dialog.Type(Control::FormatName, "");
    dialog.Click(Control::Ok);
    EXPECT_EQ(dialog.DismissMessage(), "Please enter a format name.");
    EXPECT_TRUE(dialog.IsOpen());
    dialog.Type(Control::FormatName, "First");
    dialog.Click(Control::Ok);
  }));
}

TEST_F(DialogTest, AnUnwritableFileKeepsTheDialogOpen) {
  SetDefault("Second");
  const std::string settingsBefore = TemporaryFolder::Read(settings_);
  EXPECT_TRUE(Run([this, &settingsBefore](D& dialog) {
    dialog.Type(Control::StartLine, "9");
    dialog.Click(Control::SetAsDefault);
    std::filesystem::rename(config_, folder_ / "aside.xml");
    std::filesystem::create_directories(config_ + "/in the way");
    dialog.Click(Control::Ok);
    EXPECT_TRUE(dialog.IsOpen());
    ASSERT_EQ(messages_.size(), 1U);
    EXPECT_NE(messages_[0].find("formats.xml\" was not written"), std::string::npos) << messages_[0];
    EXPECT_EQ(TemporaryFolder::Read(settings_), settingsBefore);
    EXPECT_EQ(dialog.Text(Control::StartLine), "9");
    std::filesystem::remove_all(config_);
    std::filesystem::rename(folder_ / "aside.xml", config_);
    EXPECT_EQ(TemporaryFolder::Read(config_), kFile);
    dialog.Click(Control::Ok);
  }));
  EXPECT_EQ(FormatIn(config_, "First").StartLine, 9);
  EXPECT_EQ(ReadDefaultFormat(settings_), "First");
}

TEST_F(DialogTest, TheHeaderWindowStandsBesideTheDialog) {
  sample_ = folder_.Write("jobs.csv", "[FMT_Name=First]\r\nPart,GroupName,\"Due, date\"\r\n1,2,3\r\n");
  EXPECT_TRUE(Run([this](D& dialog) {
    const Frame before = dialog.HeaderWindowFrame();
    dialog.Click(Control::ShowHeader);
    EXPECT_TRUE(dialog.IsHeaderWindowVisible());
    EXPECT_EQ(dialog.Text(Control::ShowHeader), "Hide Header");
    const Frame main = dialog.DialogFrame(), header = dialog.HeaderWindowFrame();
    EXPECT_EQ(header.left, main.right);
    EXPECT_EQ(header.bottom, main.bottom);
    EXPECT_EQ(header.right - header.left, before.right - before.left);
    EXPECT_EQ(header.bottom - header.top, before.bottom - before.top);
    EXPECT_EQ(dialog.Items(Control::Headers), (Words{"Part", "Due, date"}));

    dialog.Type(Control::StartLine, "3");
    dialog.Click(Control::Refresh);
    EXPECT_EQ(dialog.Items(Control::Headers), (Words{"1", "2", "3"}));
    dialog.Type(Control::StartLine, "50");
    dialog.Click(Control::Refresh);
    EXPECT_EQ(dialog.Items(Control::Headers), (Words{"1", "2", "3"}));
    std::filesystem::remove(sample_);
    dialog.Type(Control::StartLine, "2");
    dialog.Click(Control::Refresh);
    EXPECT_EQ(dialog.Items(Control::Headers), (Words{"1", "2", "3"}));

    dialog.Click(Control::ShowHeader);
    EXPECT_FALSE(dialog.IsHeaderWindowVisible());
    EXPECT_EQ(dialog.Text(Control::ShowHeader), "Show Header");
    dialog.Click(Control::ShowHeader);
    dialog.CloseHeaderWindow();
    EXPECT_FALSE(dialog.IsHeaderWindowVisible());
    EXPECT_EQ(dialog.Text(Control::ShowHeader), "Show Header");
    dialog.Click(Control::ShowHeader);
    dialog.Click(Control::Ok);
  }));
}

TEST_F(DialogTest, SamplesOfEveryType) {
  FakeSpreadsheet office;
  FakeSpreadsheet::Store(folder_ / "jobs.xls", {{"[FMT_Name=First]"}, {"Part", "Qty"}, {"1", "2"}});
  for (const std::string& sample :
       {folder_ / "jobs.xls", folder_.Write("jobs.txt", "title\r\nPart\tQty\r\n1\t2\r\n"),
        folder_.Write("jobs.csv", "title\r\n\"Part\",Qty\r\n1,2\r\n")}) {
    SCOPED_TRACE(sample);
    sample_ = sample;
    Run([](D& dialog) {
      dialog.Click(Control::ShowHeader);
      EXPECT_EQ(dialog.Items(Control::Headers), (Words{"Part", "Qty"}));
    });
  }
  EXPECT_EQ(office.Running + office.Objects, 0);
}

TEST_F(DialogTest, SamplesThatGiveNoHeaders) {
  const std::string samples[] = {folder_.Write("JOBS.CSV", "a,b\n"), folder_.Write("jobs.txt", ""),
                                 folder_.Write("jobs.xlsx", "a,b\n"), folder_ / "missing.csv", ""};
  for (const std::string& sample : samples) {
    SCOPED_TRACE(sample);
    sample_ = sample;
    Run([](D& dialog) {
      dialog.Type(Control::StartLine, "1");
      dialog.Click(Control::ShowHeader);
      dialog.Click(Control::Refresh);
      EXPECT_TRUE(dialog.Items(Control::Headers).empty());
    });
  }
  EXPECT_TRUE(messages_.empty());
}

TEST_F(DialogTest, TheCallersWishes) {
  FormatOptionRequest request = Request();
  request.offersHeaders = false;
  request.formatName = "Second";
  EXPECT_TRUE(RunDialog([&request] { return ShowFormatOptionDialog(request); },
                        [](D& dialog) {
                          EXPECT_FALSE(dialog.IsVisible(Control::ShowHeader));
                          EXPECT_EQ(dialog.Text(Control::FormatName), "Second");
                          dialog.Click(Control::Ok);
                        },
                        messages_));
  EXPECT_EQ(FormatsIn(config_).CurrentFormat, "Second");
}

TEST_F(DialogTest, AFormatWithoutColumns) {
  folder_.Write("formats.xml", FormatFile("F", FormatElement("F", "")));
  Run([](D& dialog) {
    EXPECT_FALSE(dialog.IsEnabled(Control::Sequence));
    dialog.DoubleClick(Control::PlanItems, 0);
    EXPECT_TRUE(dialog.IsEnabled(Control::Sequence));
    EXPECT_EQ(Flags(dialog, kListButtons, &D::IsEnabled), "001");
    dialog.Click(Control::Down);
    EXPECT_EQ(dialog.Items(Control::Sequence), Words{"Ignore"});
  });
}

TEST_F(DialogTest, AMalformedFileIsToldBeforeItIsReplaced) {
  const std::string malformed = kFile.substr(0, 200);
  folder_.Write("formats.xml", malformed);
  EXPECT_FALSE(Run([](D& dialog) { EXPECT_EQ(dialog.Text(Control::FormatName), "Form1"); }));
  ASSERT_EQ(messages_.size(), 1U);
  EXPECT_NE(messages_[0].find("cannot be read"), std::string::npos);
  EXPECT_EQ(TemporaryFolder::Read(config_), malformed);
}

}  // namespace
