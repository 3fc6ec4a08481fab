#include <QVAssemblyFile/PrtInfo.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

// The name under which a test finds an element again.
char* NameOf(UsedToolInfo& tool) { return tool.ToolSta; }
char* NameOf(HoleInfo& hole) { return hole.HoleQuantity; }
char* NameOf(BendInfo& bend) { return bend.BendComments; }

struct UsedTools {
  using Element = UsedToolInfo;
  static constexpr auto kGet = &PrtInfo::GetUsedToolInfo;
  static constexpr auto kSet = &PrtInfo::SetUsedToolInfo;
};
struct Holes {
  using Element = HoleInfo;
  static constexpr auto kGet = &PrtInfo::GetHoleInfo;
  static constexpr auto kSet = &PrtInfo::SetHoleInfo;
};
struct Bends {
  using Element = BendInfo;
  static constexpr auto kGet = &PrtInfo::GetBendInfo;
  static constexpr auto kSet = &PrtInfo::SetBendInfo;
};

using Names = std::vector<std::string>;

template <class Kind>
class PrtInfoListTest : public testing::Test {
 protected:
  using Element = typename Kind::Element;

  static std::vector<Element> ListOf(const Names& names) {
    std::vector<Element> list(names.size());
    for (std::size_t rank = 0; rank < names.size(); ++rank)
      std::snprintf(NameOf(list[rank]), 260, "%s", names[rank].c_str());
    return list;
  }

  static void Set(PrtInfo& record, const Names& names) {
    std::vector<Element> list = ListOf(names);
    (record.*Kind::kSet)(list);
    EXPECT_EQ(list.size(), names.size());
  }

  // Into a list that holds something already.
  static Names Get(PrtInfo& record) {
    std::vector<Element> list = ListOf({"left from before", "and another"});
    (record.*Kind::kGet)(list);
    Names names;
    for (Element& element : list) names.emplace_back(NameOf(element));
    return names;
  }
};

using Kinds = testing::Types<UsedTools, Holes, Bends>;
TYPED_TEST_SUITE(PrtInfoListTest, Kinds);

TYPED_TEST(PrtInfoListTest, GivesItsElementsInOrder) {
  PrtInfo record;
  EXPECT_EQ(this->Get(record), Names{});
  for (const Names& names : {Names{"one", "two", "three"}, Names{"four"}, Names{}}) {
    this->Set(record, names);
    EXPECT_EQ(this->Get(record), names);
  }
}

TYPED_TEST(PrtInfoListTest, SharesNothingWithTheCaller) {
  PrtInfo record;
  auto given = this->ListOf({"given"});
  (record.*TypeParam::kSet)(given);
  NameOf(given[0])[0] = 'X';
  decltype(given) got;
  (record.*TypeParam::kGet)(got);
  NameOf(got[0])[0] = 'Y';
  EXPECT_EQ(this->Get(record), Names{"given"});
}

TYPED_TEST(PrtInfoListTest, CopiesOwnTheirLists) {
  auto source = std::make_unique<PrtInfo>();
  this->Set(*source, {"one", "two"});
  PrtInfo copied(*source);
  PrtInfo assigned;
  this->Set(assigned, {"replaced"});
  assigned = *source;
  this->Set(*source, {"changed"});
  EXPECT_EQ(this->Get(copied), (Names{"one", "two"}));
  source.reset();
  EXPECT_EQ(this->Get(assigned), (Names{"one", "two"}));
}

TEST(PrtInfoTest, TheListsAreThree) {
  PrtInfo record;
  std::vector<UsedToolInfo> tools(1);
  std::vector<HoleInfo> holes(2);
  std::vector<BendInfo> bends(3);
  record.SetUsedToolInfo(tools);
  record.SetHoleInfo(holes);
  record.SetBendInfo(bends);
  tools.clear();
  holes.clear();
  bends.clear();
  record.GetUsedToolInfo(tools);
  record.GetHoleInfo(holes);
  record.GetBendInfo(bends);
  EXPECT_EQ(tools.size(), 1u);
  EXPECT_EQ(holes.size(), 2u);
  EXPECT_EQ(bends.size(), 3u);
}

TEST(PrtInfoTest, AFreshElementIsEmpty) {
  const auto tool = std::make_unique<UsedToolInfo>();
  EXPECT_EQ(tool->ToolShape, 0);
  for (const char* text : {tool->ToolType, tool->ToolDescription, tool->StaSize, tool->ToolSta})
    EXPECT_STREQ(text, "");
  const auto hole = std::make_unique<HoleInfo>();
  for (const char* text :
       {hole->HoleType, hole->HoleDimX, hole->HoleDimY, hole->HoleDimR, hole->HoleQuantity})
    EXPECT_STREQ(text, "");
  const auto bend = std::make_unique<BendInfo>();
  for (const char* text :
       {bend->BendAngle, bend->BendRadius, bend->BendDeduction, bend->BendType, bend->BendComments})
    EXPECT_STREQ(text, "");
}

}  // namespace
