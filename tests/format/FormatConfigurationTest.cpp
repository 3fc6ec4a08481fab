#include "format/FormatConfiguration.h"

#include "tests/support/CaseFile.h"
#include "tests/support/DiagnosticLog.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class FormatConfigurationTest : public testing::Test {
 protected:
  bool Load(const std::string& text) {
    const std::string path = folder_.Write("formats.xml", text);
    log_.Remarks.clear();
    return LoadFromFile(configuration_, path.c_str());
  }
  const FormatList& List() const { return *configuration_.Formats; }
  const OptionForm& First() const { return List().Formats.at(0); }

  TemporaryFolder folder_;
  DiagnosticLog log_;
  FormatConfiguration configuration_;
};

TEST_F(FormatConfigurationTest, LoadsAsTheCasesSay) {
  for (const TestCase& c : ReadTestCases("format/cases")) {
    SCOPED_TRACE(c.name);
    ASSERT_TRUE(Load(c.Text("file")));
    std::vector<std::string> formats;
    for (const OptionForm& form : List().Formats) {
      formats.push_back(FormatLine(form) + (form.TreatAsOne ? " as one" : ""));
      EXPECT_GE(form.Items.size(), DefaultHeaderKeywords.size());
    }
    EXPECT_EQ(List().CurrentFormat, c.Setting("current", ""));
    EXPECT_EQ(formats, c.Lines("formats"));
    EXPECT_EQ(log_.Codes(), c.Setting("remarks", ""));
  }
}

TEST_F(FormatConfigurationTest, TakesAttributesAsFarAsTheyGo) {
  for (const auto& row : ReadTable("format/tables/attributes.table")) {
    const bool isNumber = row[0] == "number";
    for (const std::string attribute : {"Line", "Qualifier", "TreatAsOne"}) {
      if (isNumber == (attribute == "TreatAsOne")) continue;
      SCOPED_TRACE(attribute + " " + row[1]);
      ASSERT_TRUE(
          Load("<CSVOptionSetting><OptionForm " + attribute + "='" + row[1] + "'/></CSVOptionSetting>"));
      const int value = !isNumber             ? First().TreatAsOne
                        : attribute == "Line" ? First().StartLine
                                              : First().Qualifier;
      EXPECT_EQ(std::to_string(value), row[2]);
      EXPECT_EQ(log_.Codes(), row[3]);
    }
  }
}

TEST_F(FormatConfigurationTest, KeepsTheListWhenThereIsNoPath) {
  configuration_.Formats = FormatList{"mine", {}};
  EXPECT_FALSE(LoadFromFile(configuration_, nullptr));
  EXPECT_FALSE(LoadFromFile(configuration_, ""));
  EXPECT_EQ(List().CurrentFormat, "mine");
}

TEST_F(FormatConfigurationTest, AMissingFileIsToldAndNotMade) {
  const std::string missing = folder_ / "missing.xml";
  EXPECT_TRUE(LoadFromFile(configuration_, missing.c_str()));
  EXPECT_EQ(log_.Remarks.at(0).file, missing);
  EXPECT_EQ(folder_.Names().size(), 0U);
}

TEST_F(FormatConfigurationTest, TellsWhyAndWhereNothingWasRead) {
  using qv::XmlProblem;
  const std::pair<qv::XmlError, const char*> cases[] = {
      {{XmlProblem::MissingFile, 0, 0, "gone"}, "missing (gone); the built-in format is used."},
      {{XmlProblem::Unreadable, 2, 5, "odd"},
       "cannot be read at line 2, column 5 (odd); the built-in format is used."},
      {{XmlProblem::NoComponent, 0, 0, "no"}, "cannot be read (no); the formats stay as they were."}};
  for (const auto& [error, message] : cases) {
    SCOPED_TRACE(message);
    const bool isMissing = error.problem == XmlProblem::MissingFile;
    const bool hasParser = error.problem != XmlProblem::NoComponent;
    configuration_.Formats = FormatList{"mine", {}};
    log_.Remarks.clear();
    qv::LoadedFormats loaded;
    loaded.error = error;
    EXPECT_EQ(qv::TakeFormats(configuration_, loaded, "a.xml"), hasParser);
    EXPECT_EQ(List().CurrentFormat, hasParser ? "Form1" : "mine");
    EXPECT_EQ(log_.Codes(), isMissing ? "configuration-missing" : "configuration-invalid");
    EXPECT_EQ(log_.Remarks.at(0).line, error.line);
    EXPECT_TRUE(log_.Remarks.at(0).message.ends_with(message)) << log_.Remarks.at(0).message;
  }
}

FormatList Sample() {
  const OptionForm odd{"<odd> & \"name\"",
                       -1,
                       "Tab,Other",
                       "\t|'\n",
                       2,
                       true,
                       "Path",
                       {{"C-CutPunch", "3"}, {"Ignore", "0,2,"}, {"Mine", " x "}}};
  OptionForm bare;
  bare.Items = {{"PartName", ""}};
  return {"nowhere", {odd, bare}};
}

TEST_F(FormatConfigurationTest, ReadsBackWhatItSaved) {
  configuration_.Formats = Sample();
  const std::string path = folder_ / "saved.xml";
  std::string failure = "stale";
  ASSERT_TRUE(SaveToFile(configuration_, path.c_str(), &failure));
  EXPECT_EQ(failure, "");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"saved.xml"});
  EXPECT_TRUE(TemporaryFolder::Read(path).starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));

  FormatConfiguration loaded;
  ASSERT_TRUE(LoadFromFile(loaded, path.c_str()));
  EXPECT_EQ(log_.Codes(), "");
  EXPECT_EQ(loaded.Formats->CurrentFormat, "nowhere");
  const std::vector<OptionForm>& before = configuration_.Formats->Formats;
  const std::vector<OptionForm>& after = loaded.Formats->Formats;
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(FormatLine(after[i]), FormatLine(before[i]));
  // The word that is saved is another than the one that is read.
  EXPECT_NE(TemporaryFolder::Read(path).find("TreatAsOne=\"1\""), std::string::npos);
  EXPECT_FALSE(after[0].TreatAsOne);
}

TEST_F(FormatConfigurationTest, WritesNothingWhenANodeCannotBe) {
  const std::string path = folder_.Write("saved.xml", "old");
  const struct {
    const char *name, *order, *other, *told;
  } cases[] = {
      {"#comment", "1", "", "FormatItem node error"},
      {"Rectangular/TrueShape", "1", "", "FormatItem node error"},
      {"a b", "1", "", "FormatItem node error"},
      {"", "1", "", "FormatItem node error"},
      {"Machine", "1\x01", "", "FormatItem node error"},
      {"Machine", "1", "\x02", "can not create OptionForm node"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    OptionForm form;
    form.OtherDelimiters = test.other;
    form.Items = {{"PartName", "0"}, {test.name, test.order}};
    configuration_.Formats = FormatList{"", {form}};
    log_.Remarks.clear();
    std::string failure;
    EXPECT_FALSE(SaveToFile(configuration_, path.c_str(), &failure));
    EXPECT_TRUE(failure.starts_with(test.told)) << failure;
    EXPECT_EQ(TemporaryFolder::Read(path), "old");
    EXPECT_EQ(log_.Codes(), "file-not-written");
  }
}

TEST_F(FormatConfigurationTest, KeepsTheOldFileWhateverCallFails) {
  std::string old;
  {
    FakeFileSystem files;
    SaveToFile(FormatConfiguration(), "a.xml");
    old = files.Contents["a.xml"];
  }
  configuration_.Formats = Sample();
  std::string failure;
  const int runs = ForEachFailure(
      {{"a.xml", old}}, [&](FakeFileSystem&) { EXPECT_TRUE(SaveToFile(configuration_, "a.xml", &failure)); },
      [&](FakeFileSystem& files) {
        EXPECT_EQ(files.Contents["a.xml"] == old, !failure.empty());
        FormatConfiguration loaded;
        files.StopFailing();
        EXPECT_TRUE(LoadFromFile(loaded, "a.xml"));
        EXPECT_EQ(loaded.Formats->Formats.size(), failure.empty() ? 2U : 0U);
      });
  EXPECT_EQ(failure, "");
  EXPECT_GE(runs, 10);
}

}  // namespace
