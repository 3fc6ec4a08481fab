#include "format/FormatList.h"

#include <gtest/gtest.h>

#include <string>

namespace {

OptionForm Named(const char* name, int startLine = 0) {
  OptionForm form;
  form.Name = name;
  form.StartLine = startLine;
  form.Items = {{"PartName", "0"}};
  return form;
}

std::string NamesAndLines(const FormatList& list) {
  std::string names;
  for (const OptionForm& form : list.Formats) names += form.Name + std::to_string(form.StartLine) + " ";
  return names;
}

TEST(FormatListTest, FindsANameExactly) {
  const FormatList list{"", {Named("Laser", 1), Named("laser", 2), Named("", 3)}};
  const struct {
    const char* name;
    int startLine;  // 0: found nothing
  } cases[] = {{"Laser", 1}, {"laser", 2}, {"", 3}, {"LASER", 0}, {"Laser ", 0}, {"Lase", 0}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    OptionForm found = Named("untouched");
    EXPECT_EQ(FindFormat(list, test.name, found), test.startLine != 0);
    EXPECT_EQ(found.StartLine, test.startLine);
    EXPECT_EQ(found.Name, test.startLine != 0 ? test.name : "untouched");
  }
}

TEST(FormatListTest, KeepsNamesUnique) {
  FormatList list;
  EXPECT_FALSE(AddFormat(list, nullptr));
  for (const OptionForm& form : {Named("a", 1), Named("b", 2), Named("A", 3), Named("a", 4), Named("c", 5)}) {
    EXPECT_TRUE(AddFormat(list, &form));
  }
  EXPECT_EQ(NamesAndLines(list), "a4 b2 A3 c5 ");
  EXPECT_TRUE(AddFormat(list, &list.Formats[1])) << "one of its own";
  EXPECT_EQ(NamesAndLines(list), "a4 b2 A3 c5 ");
}

TEST(FormatListTest, CompletesAFormatWithEveryKeywordOnce) {
  OptionForm form;
  form.Items = {{"Customer", "1"}, {"PartName", "0"}, {"partname", "2"}, {"Mine", "3"}};
  CompleteWithKeywords(form);
  ASSERT_EQ(form.Items.size(), 4 + 31U);
  EXPECT_EQ(form.Items[2].Name, "partname") << "what was there keeps its place";
  EXPECT_EQ(form.Items[4].Name, "Ignore");
  EXPECT_EQ(form.Items[5].Name, "PartNumber");
  EXPECT_EQ(form.Items.back().Name, "Priority");
  EXPECT_EQ(form.Items.back().Order, "-1");

  CompleteWithKeywords(form);
  EXPECT_EQ(form.Items.size(), 35U) << "a second time adds nothing";
}

}  // namespace
