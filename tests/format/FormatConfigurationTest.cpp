#include "format/FormatConfiguration.h"

#include "tests/support/CaseFile.h"
#include "tests/support/DiagnosticLog.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

class FormatConfigurationTest : public testing::Test {
 protected:
  bool Load(const std::string& text) {
    const std::string path = folder_.Write("formats.xml", text);
    log_.Remarks.clear();
    return LoadFromFile(configuration_, path.c_str());
  }
  bool LoadFormat(const std::string& attributes, const std::string& children = "") {
    return Load("<CSVOptionSetting Current='a'><OptionForm Name='a' " + attributes + ">" + children +
                "</OptionForm></CSVOptionSetting>");
  }
  const FormatList& List() const { return *configuration_.Formats; }
  const OptionForm& First() const { return List().Formats.at(0); }

  TemporaryFolder folder_;
  DiagnosticLog log_;
  FormatConfiguration configuration_;
};

TEST_F(FormatConfigurationTest, ReadsEveryField) {
  ASSERT_TRUE(
      Load("<?xml version='1.0' encoding='UTF-8'?>\n"
           "<CSVOptionSetting Current='Laser'>\n"
           "  <OptionForm Name='Laser' Line='3' Delimiters='Semicolon,Other' Other='|' Qualifier='1'"
           " TreatAsOne='true' Part='Path'><PartName Order='1'/><Ignore Order='0,2,'/></OptionForm>\n"
           "  <OptionForm/>\n"
           "</CSVOptionSetting>\n"));
  EXPECT_EQ(log_.Codes(), "");
  EXPECT_EQ(List().CurrentFormat, "Laser");
  ASSERT_EQ(List().Formats.size(), 2U);
  EXPECT_EQ(FormatLine(First()), "Laser: 3 Semicolon,Other [|] 1 Path: PartName=1 Ignore=0,2,");
  EXPECT_TRUE(First().TreatAsOne);
  ASSERT_EQ(First().Items.size(), 33U);
  EXPECT_EQ(First().Items[2].Name + First().Items[2].Order, "PartNumber-1");
  const OptionForm& bare = List().Formats[1];
  EXPECT_EQ(FormatLine(bare), ": 0  [] 0 :");
  EXPECT_FALSE(bare.TreatAsOne);
  EXPECT_EQ(bare.Items.size(), 33U);
}

TEST_F(FormatConfigurationTest, TakesAttributesAsFarAsTheyGo) {
  for (const auto& row : ReadTable("format/tables/attributes.table")) {
    const bool isNumber = row[0] == "number";
    for (const std::string attribute : {"Line", "Qualifier", "TreatAsOne"}) {
      if (isNumber == (attribute == "TreatAsOne")) continue;
      SCOPED_TRACE(attribute + " " + row[1]);
      ASSERT_TRUE(LoadFormat(attribute + "='" + row[1] + "'"));
      const int value = !isNumber             ? First().TreatAsOne
                        : attribute == "Line" ? First().StartLine
                                              : First().Qualifier;
      EXPECT_EQ(std::to_string(value), row[2]);
      EXPECT_EQ(log_.Codes(), row[3]);
    }
  }
}

TEST_F(FormatConfigurationTest, TakesEveryChildOfAFormatAsAnItem) {
  const struct {
    const char* children;
    const char* names;
    const char* attributes = "";
  } cases[] = {
      {"<PartName Order='0'/>\n\t<Mine/>", "PartName0 Mine "},
      {"<!-- why --><PartName Order='0'/>", "#comment PartName0 "},
      {"text<![CDATA[x]]><?pi Order='1'?>", "#text #cdata-section pi "},
      {"<PartName Order='0'/><PartName Order='1'/>", "PartName0 PartName1 "},
      {"<OptionForm Order='1'><PartName Order='0'/></OptionForm>", "OptionForm1 "},
      {" <PartName Order='0'> </PartName>", "#text PartName0 ", "xml:space='preserve'"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.children);
    ASSERT_TRUE(LoadFormat(test.attributes, test.children));
    const auto named =
        static_cast<std::size_t>(std::count(test.names, test.names + std::strlen(test.names), ' '));
    std::string names;
    for (std::size_t i = 0; i < named; ++i) names += First().Items[i].Name + First().Items[i].Order + " ";
    EXPECT_EQ(names, test.names);
  }
}

TEST_F(FormatConfigurationTest, SkipsWhatIsNoFormat) {
  ASSERT_TRUE(
      Load("<CSVOptionSetting><!-- x --><Other/>text<optionform Name='c'/><OptionForm Name='a' Line='1'/>"
           "<OptionForm Name='b'/><OptionForm Name='a' Line='2'/></CSVOptionSetting>"));
  EXPECT_EQ(List().CurrentFormat, "");
  ASSERT_EQ(List().Formats.size(), 2U);
  EXPECT_EQ(First().Name, "a");
  EXPECT_EQ(First().StartLine, 2) << "the later one of a name, in the earlier one's place";
}

TEST_F(FormatConfigurationTest, TakesAnyRootButSaysSo) {
  ASSERT_TRUE(Load("<Settings Current='x'><OptionForm Name='x'/></Settings>"));
  EXPECT_EQ(List().CurrentFormat, "x");
  EXPECT_EQ(First().Name, "x");
  EXPECT_EQ(log_.Codes(), "configuration-invalid");
}

TEST_F(FormatConfigurationTest, KeepsTheListWhenThereIsNoPath) {
  configuration_.Formats = FormatList{"mine", {}};
  EXPECT_FALSE(LoadFromFile(configuration_, nullptr));
  EXPECT_FALSE(LoadFromFile(configuration_, ""));
  EXPECT_EQ(List().CurrentFormat, "mine");
}

TEST_F(FormatConfigurationTest, FallsBackOnTheBuiltInFormatAndSaysWhy) {
  configuration_.Formats = FormatList{"mine", {}};
  const std::string missing = folder_ / "missing.xml";
  EXPECT_TRUE(LoadFromFile(configuration_, missing.c_str()));
  EXPECT_EQ(List().CurrentFormat, "Form1");
  EXPECT_EQ(log_.Codes(), "configuration-missing");
  EXPECT_EQ(log_.Remarks[0].file, missing);
  EXPECT_EQ(folder_.Names().size(), 0U) << "nothing is written";

  EXPECT_TRUE(Load("<CSVOptionSetting>\n  <OptionForm Name='a'></CSVOptionSetting>"));
  EXPECT_EQ(First().Name, "Form1");
  EXPECT_EQ(log_.Codes(), "configuration-invalid");
}

TEST_F(FormatConfigurationTest, TellsWhyAndWhereNothingWasRead) {
  using qv::XmlProblem;
  const struct {
    qv::XmlError error;
    const char *current, *code, *message;
  } cases[] = {
      {{XmlProblem::MissingFile, 0, 0, "gone"},
       "Form1",
       "configuration-missing",
       "The format file is missing (gone); the built-in format is used."},
      {{XmlProblem::Unreadable, 2, 5, "odd"},
       "Form1",
       "configuration-invalid",
       "The format file cannot be read at line 2, column 5 (odd); the built-in format is used."},
      {{XmlProblem::NoComponent, 0, 0, "no parser"},
       "mine",
       "configuration-invalid",
       "The format file cannot be read (no parser); the formats stay as they were."},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.message);
    configuration_.Formats = FormatList{"mine", {}};
    log_.Remarks.clear();
    qv::LoadedFormats loaded;
    loaded.error = test.error;
    EXPECT_EQ(qv::TakeFormats(configuration_, loaded, "a.xml"),
              test.error.problem != XmlProblem::NoComponent);
    EXPECT_EQ(List().CurrentFormat, test.current);
    EXPECT_EQ(log_.Codes(), test.code);
    EXPECT_EQ(log_.Remarks.at(0).line, test.error.line);
    EXPECT_EQ(log_.Remarks.at(0).message, test.message);
  }
}

FormatList Sample() {
  const OptionForm odd{"<odd> & \"name\"",
                       -1,
                       "Tab,Other",
                       "\t|'\n",
                       2,
                       false,
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
  const FormatList saved = Sample();
  EXPECT_EQ(loaded.Formats->CurrentFormat, saved.CurrentFormat);
  ASSERT_EQ(loaded.Formats->Formats.size(), saved.Formats.size());
  for (std::size_t i = 0; i < saved.Formats.size(); ++i)
    EXPECT_EQ(FormatLine(loaded.Formats->Formats[i]), FormatLine(saved.Formats[i]));
}

TEST_F(FormatConfigurationTest, ASavedFlagReadsBackClear) {
  OptionForm form;
  form.TreatAsOne = true;
  configuration_.Formats = FormatList{"", {form}};
  const std::string path = folder_ / "saved.xml";
  ASSERT_TRUE(SaveToFile(configuration_, path.c_str()));
  EXPECT_NE(TemporaryFolder::Read(path).find("TreatAsOne=\"1\""), std::string::npos);
  ASSERT_TRUE(LoadFromFile(configuration_, path.c_str()));
  EXPECT_FALSE(First().TreatAsOne);
}

TEST_F(FormatConfigurationTest, SavesAnAbsentListAsAnEmptyOne) {
  const std::string path = folder_ / "saved.xml";
  ASSERT_TRUE(SaveToFile(FormatConfiguration(), path.c_str()));
  ASSERT_TRUE(LoadFromFile(configuration_, path.c_str()));
  EXPECT_EQ(List().Formats.size(), 0U);
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
