#include "cli/formats/FormatBuilder.h"
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
