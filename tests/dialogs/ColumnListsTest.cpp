#include "dialogs/model/ColumnLists.h"

#include "tests/support/CaseFile.h"
#include "tests/support/FormatText.h"

#include <gtest/gtest.h>

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
  for (const auto& row : ReadTable("dialogs/tables/sequences.table")) {
    SCOPED_TRACE(row[0]);
    ColumnLists lists;
    lists.Show(ItemsOf(row[0]));
    EXPECT_EQ(Joined(lists.Sequence()), row[1]);
    EXPECT_EQ(ColumnsOf(FormOf(lists)), row[2]);

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

TEST(ColumnListsTest, SelectionsAreTakenAsFarAsTheyGo) {
  ColumnLists lists;
  lists.Show(ItemsOf("Ignore PartName=0 Customer=1 Machine=2 Revision"));
  lists.Add({4, 0, 0, 9});
  EXPECT_EQ(Joined(lists.Sequence()), "PartName Customer Machine Ignore Revision");
  lists.SelectSequence({2, 99, 2, 1});
  EXPECT_EQ(lists.SequenceSelection(), (Selection{1, 2}));
}

TEST(ColumnListsTest, TheKeyColumnStaysHoweverItIsSpelled) {
  for (const char* key : {"PartName", "PARTNAME", "partname", "ID", "Id", "id"}) {
    SCOPED_TRACE(key);
    ColumnLists lists;
    lists.Show({{"Customer", "0"}, {key, "1"}, {"PartNameX", "2"}});
    lists.SelectSequence({1});
    EXPECT_FALSE(lists.CanDelete());
    lists.SelectSequence({0, 1, 2});
    lists.Delete();
    EXPECT_EQ(Joined(lists.Sequence()), key);
    EXPECT_EQ(lists.SequenceSelection(), Selection{0});
  }
}

}  // namespace
