#include "platform/ProfileFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class ProfileFileTest : public testing::Test {
 protected:
  std::string Read() const {
    return qv::ReadProfileText(folder_ / "Setting.ini", "CsvXlsFormat", "DefaultFormat");
  }
  bool Write(const std::string& value) const {
    return qv::WriteProfileText(folder_ / "Setting.ini", "CsvXlsFormat", "DefaultFormat", value);
  }
  std::string Content() const { return TemporaryFolder::Read(folder_ / "Setting.ini"); }

  TemporaryFolder folder_;
};

TEST_F(ProfileFileTest, FindsTheValue) {
  const std::string section = "[CsvXlsFormat]\n";
  const struct {
    const char* why;
    std::string content;
    std::string value;
  } cases[] = {
      {"an empty file", "", ""},
      {"no section", "DefaultFormat=x\n", ""},
      {"another section", "[Other]\nDefaultFormat=x\n", ""},
      {"no key", section + "Other=x\n", ""},
      {"a longer key", section + "DefaultFormat2=x\n", ""},
      {"an empty value", section + "DefaultFormat=\n", ""},
      {"a value", section + "DefaultFormat=Form1\n", "Form1"},
      {"no line end", section + "DefaultFormat=Form1", "Form1"},
      {"lines of the other kind", "[CsvXlsFormat]\r\nDefaultFormat=Form1\r\n", "Form1"},
      {"the case does not count", "[CSVXLSFORMAT]\ndefaultformat=Form1\n", "Form1"},
      {"white space around", "  [CsvXlsFormat]\n\t DefaultFormat \t= Form 1 \t\n", "Form 1"},
      {"double quotation marks", section + "DefaultFormat=\" Form1 \"\n", " Form1 "},
      {"single quotation marks", section + "DefaultFormat='Form1'\n", "Form1"},
      {"one pair only", section + "DefaultFormat=\"\"x\"\"\n", "\"x\""},
      {"marks that are no pair", section + "DefaultFormat=\"x'\n", "\"x'"},
      {"one mark", section + "DefaultFormat=\"\n", "\""},
      {"further signs belong to the value", section + "DefaultFormat=a=b;c#d\n", "a=b;c#d"},
      {"comments", "; [CsvXlsFormat]\n" + section + "; DefaultFormat=no\nDefaultFormat=Form1\n", "Form1"},
      {"the first of two", section + "DefaultFormat=1\nDefaultFormat=2\n", "1"},
      {"the section is left", section + "a=1\n[Other]\nDefaultFormat=x\n", ""},
      {"lines that mean nothing", "junk\n" + section + "junk\n=x\nDefaultFormat=Form1\n", "Form1"},
      {"bytes of another code page", section + "DefaultFormat=F\xF6rm\n", "F\xF6rm"},
      {"a long value is cut", section + "DefaultFormat=" + std::string(2000, 'x') + "\n",
       std::string(1023, 'x')},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    folder_.Write("Setting.ini", test.content);
    EXPECT_EQ(Read(), test.value);
  }
}

TEST_F(ProfileFileTest, AMissingFileReadsAsEmptyAndIsCreated) {
  EXPECT_EQ(Read(), "");
  EXPECT_TRUE(Write("Form1"));
  EXPECT_EQ(Read(), "Form1");
  EXPECT_TRUE(Write(""));
  EXPECT_EQ(Read(), "");
}

TEST_F(ProfileFileTest, WritesWhatItReadsBack) {
  for (const std::string value :
       {"Form1", "a=b", "[x]", "; x", " spaces ", "\"quoted\"", "'quoted'", "\"", "F\xF6rm"}) {
    SCOPED_TRACE(value);
    EXPECT_TRUE(Write(value));
    EXPECT_EQ(Read(), value);
  }
}

}  // namespace
