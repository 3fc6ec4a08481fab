#include "dialogs/ColumnLists.h"

#include "tests/dialogs/FormatFileText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using qv::ColumnLists;
using qv::Selection;

OptionForm FormOf(const ColumnLists& lists) {
  OptionForm form;
  form.Items = lists.Items();
  return form;
}

TEST(ColumnListsTest, ShowsTheColumnsInTheOrderOfTheirPositions) {
  const struct {
    const char* items;
    const char* sequence;
    const char* columnsAfterwards;
  } cases[] = {
      {"", "", ""},
      {"Ignore PartName Customer", "", ""},
      {"PartName=0 Customer=1", "PartName Customer", "PartName=0 Customer=1"},
      // Items that stand in the file in another order than their columns.
      {"A=2 B=1 C=0", "C B A", "A=2 B=1 C=0"},
      {"A=1 B=3 C=0 D=2", "C A D B", "A=1 B=3 C=0 D=2"},
      // Ignored columns keep their places between the others.
      {"Ignore=2,5, A=0 B=1 C=3 D=4", "A B Ignore C D Ignore", "Ignore=2,5, A=0 B=1 C=3 D=4"},
      {"A=1 Ignore=0, B=2", "Ignore A B", "A=1 Ignore=0, B=2"},
      {"Ignore=1,0, A=2", "Ignore Ignore A", "Ignore=0,1, A=2"},
      // The last position of a list need not have its comma, nor each comma its position.
      {"Ignore=0,2 A=1", "Ignore A Ignore", "Ignore=0,2, A=1"},
      {"Ignore=,,1,,A A=0", "Ignore A Ignore", "Ignore=0,2, A=1"},
      // Gaps close, and of two claims the earlier item's stands first, as it does in an import.
      {"A=0 B=7", "A B", "A=0 B=1"},
      {"A=4 B=4 C=0", "C A B", "A=1 B=2 C=0"},
      {"A=1 Ignore=1, B=0", "B A Ignore", "A=1 Ignore=2, B=0"},
      // Texts that are no positions count as 0, negative ones stand before it, and nothing is too large.
      {"A=0 B=x C=1", "A B C", "A=0 B=1 C=2"},
      {"A=0 B=-2 C=-1x", "B C A", "A=2 B=0 C=1"},
      {"A=99999999999999999999 B=1000001 C=0", "C B A", "A=2 B=1 C=0"},
      {"A=0 B= C=1", "A B C", "A=0 B=1 C=2"},
      // Slashes are only shown.
      {"RectangularTrueShape=0 C-CutPunch=1", "Rectangular/TrueShape C-Cut/Punch",
       "RectangularTrueShape=0 C-CutPunch=1"},
      // Neither hidden items nor what stood between the items of the file are shown, or kept.
      {"PartPositionInGroup=0 A=1 GroupName=2 #comment=3 #text=4 B=5", "A B", "A=0 B=1"},
      // A keyword that nobody knows stays, and so does one that the file holds twice.
      {"Frobnication=1 A=0 A=2", "A Frobnication A", "Frobnication=1 A=0 A=2"},
      {"Ignore=0, Ignore=2, A=1", "Ignore A Ignore", "Ignore=0,2, A=1"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.items);
    ColumnLists lists;
    lists.Show(ItemsOf(row.items));
    EXPECT_EQ(Joined(lists.Sequence()), row.sequence);
    EXPECT_EQ(ColumnsOf(FormOf(lists)), row.columnsAfterwards);

    ColumnLists again;
    again.Show(lists.Items());
    EXPECT_EQ(again.Sequence(), lists.Sequence());
  }
}

TEST(ColumnListsTest, KeepsEveryShownItemInItsPlaceOfThePlan) {
  ColumnLists lists;
  lists.Show(ItemsOf("Customer GroupName Ignore C-CutPunch=0 PartName #comment"));
  EXPECT_EQ(Joined(lists.PlanItems()), "Customer Ignore C-Cut/Punch PartName");
  OptionForm form = FormOf(lists);
  ASSERT_EQ(form.Items.size(), 4U);
  EXPECT_EQ(form.Items[2].Name, "C-CutPunch");
  EXPECT_EQ(form.Items[3].Order, "-1");
}

// Runs a script such as "plan 0,2; add; seq 1; up". Ranks count from 0.
void Play(ColumnLists& lists, const std::string& script) {
  std::istringstream commands(script);
  for (std::string command; std::getline(commands >> std::ws, command, ';');) {
    std::istringstream words(command);
    std::string verb, ranks;
    words >> verb >> ranks;
    Selection selection;
    std::istringstream numbers(ranks);
    for (std::string number; std::getline(numbers, number, ',');) selection.push_back(std::stoul(number));
    if (verb == "plan") lists.SelectPlanItems(selection);
    if (verb == "seq") lists.SelectSequence(selection);
    if (verb == "add") lists.Add();
    if (verb == "delete") lists.Delete();
    if (verb == "up") lists.MoveUp();
    if (verb == "down") lists.MoveDown();
  }
}

std::string Buttons(const ColumnLists& lists) {
  return std::string(lists.CanDelete() ? "D" : "-") + (lists.CanMoveUp() ? "u" : "-") +
         (lists.CanMoveDown() ? "d" : "-");
}

TEST(ColumnListsTest, Commands) {
  const char* const items = "Ignore PartName=0 Customer=1 Machine=2 Revision";
  const struct {
    const char* script;
    const char* sequence;
    Selection selection;
    const char* buttons;
  } cases[] = {
      {"", "PartName Customer Machine", {}, "---"},
      // Adding
      {"add", "PartName Customer Machine", {}, "---"},
      {"plan 4; add", "PartName Customer Machine Revision", {}, "---"},
      {"plan 4; add; add", "PartName Customer Machine Revision", {}, "---"},
      {"plan 0; add; add", "PartName Customer Machine Ignore Ignore", {}, "---"},
      {"plan 4,0,1; add", "PartName Customer Machine Ignore Revision", {}, "---"},
      {"plan 0,0,9; add", "PartName Customer Machine Ignore", {}, "---"},
      {"seq 1; delete; plan 2; add", "PartName Machine Customer", {}, "---"},
      // Deleting
      {"delete", "PartName Customer Machine", {}, "---"},
      {"seq 1; delete", "PartName Machine", {}, "---"},
      {"seq 0; delete", "PartName Customer Machine", {0}, "--d"},
      {"seq 0,1,2; delete", "PartName", {0}, "---"},
      {"plan 0; add; add; seq 3; delete", "PartName Customer Machine Ignore", {}, "---"},
      // Moving
      {"up; down", "PartName Customer Machine", {}, "---"},
      {"seq 0; up", "PartName Customer Machine", {0}, "--d"},
      {"seq 0; down", "Customer PartName Machine", {1}, "-ud"},
      {"seq 1; up; up", "Customer PartName Machine", {0}, "D-d"},
      {"seq 1; down; down", "PartName Machine Customer", {2}, "Du-"},
      {"seq 1,2; up; down", "PartName Customer Machine", {1, 2}, "D--"},
      // Selecting
      {"seq 2,2,1", "PartName Customer Machine", {1, 2}, "D--"},
      {"seq 3,99", "PartName Customer Machine", {}, "---"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.script);
    ColumnLists lists;
    lists.Show(ItemsOf(items));
    Play(lists, row.script);
    EXPECT_EQ(Joined(lists.Sequence()), row.sequence);
    EXPECT_EQ(lists.SequenceSelection(), row.selection);
    EXPECT_EQ(Buttons(lists), row.buttons);
  }
}

TEST(ColumnListsTest, TheKeyColumnStaysHoweverItIsSpelled) {
  for (const char* key : {"PartName", "PARTNAME", "partname", "ID", "Id", "id"}) {
    SCOPED_TRACE(key);
    ColumnLists lists;
    lists.Show({{"Customer", "0"}, {key, "1"}, {"PartNameX", "2"}});
    Play(lists, "seq 1");
    EXPECT_FALSE(lists.CanDelete());
    Play(lists, "seq 0,1,2; delete");
    EXPECT_EQ(Joined(lists.Sequence()), key);
    EXPECT_EQ(lists.SequenceSelection(), Selection{0});
  }
}

}  // namespace
