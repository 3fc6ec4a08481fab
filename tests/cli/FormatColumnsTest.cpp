#include "cli/FormatColumns.h"

#include "cli/FormatBuilder.h"
#include "engines/CAssemblyFile.h"

#include <gtest/gtest.h>

#include <random>

namespace qv {
namespace {

std::vector<std::string> ColumnsOfEngine(const OptionForm& form) {
  const auto engine = CreateAssemblyEngine("x.txt");
  engine->KindFlags[0] = true;
  ApplyFormat(*engine, form, "x.txt");
  return engine->Columns(RecordKind::Parts);
}

std::vector<std::string> Keywords(const OptionForm& form) {
  std::vector<std::string> keywords;
  for (const FormatColumn& column : ColumnsOf(form)) keywords.push_back(column.keyword);
  return keywords;
}

// The command line shows a format's columns as the engines take them, however odd the orders are.
TEST(FormatColumns, AreThoseThatTheEnginesTake) {
  const char* const names[] = {"Ignore", "PartName", "RectangularTrueShape", "C-CutPunch", "Customer",
                               "ID",     "Machine"};
  const char* const orders[] = {
      "-1", "0",   "1",   "2",   "7",      "",        "x",           "2x", " 3",
      "+4", "+-4", "1,",  ",",   "1,2,9,", "5,6",     "99999999999", "-2", "-99999999999",
      "x,", "- 1", " -1", "\t1", "0x10",   "1 2,3 ,", "12345678,-1,"};
  std::mt19937 random(11);
  for (int round = 0; round < 2000; ++round) {
    OptionForm form;
    for (std::size_t count = random() % 6; count > 0; --count)
      form.Items.push_back({names[random() % std::size(names)], orders[random() % std::size(orders)]});
    std::string items;
    for (const FormatItem& item : form.Items) items += item.Name + "=" + item.Order + " ";
    ASSERT_EQ(Keywords(form), ColumnsOfEngine(form)) << items;
  }
}

// What a user lists as columns is what a file then has, whichever keywords there are.
TEST(FormatBuilder, ColumnsComeOutInTheOrderGiven) {
  std::mt19937 random(12);
  const char* const names[] = {"Ignore",    "PartName", "Rectangular/TrueShape", "C-Cut/Punch",
                               "GroupName", "ID",       "PartPositionInGroup",   "OwnColumn"};
  for (int round = 0; round < 500; ++round) {
    std::vector<std::string> wanted;
    FormatWishes wishes;
    wishes.name = "x";
    for (std::size_t count = random() % 8; count > 0; --count) {
      const std::string name = names[random() % std::size(names)];
      if (name != "Ignore" && std::find(wanted.begin(), wanted.end(), name) != wanted.end()) continue;
      wanted.push_back(name);
      wishes.columns += (wishes.columns.empty() ? "" : ",") + name;
    }
    ASSERT_EQ(ColumnsOfEngine(BuildFormat(wishes)), wanted) << wishes.columns;
  }
}

}  // namespace
}  // namespace qv
