#include <QVAssemblyFile/ToolInformation.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace {

static_assert(std::is_same_v<decltype(&ToolInformation::GetToolPunchConditionString),
                             const char* (ToolInformation::*)() const>);

TEST(ToolInformationTest, PunchConditionsAreKeptWholeAndNeverNull) {
  ToolInformation tool;
  EXPECT_STREQ(tool.GetToolPunchConditionString(), "");
  for (const std::size_t length : {1u, 255u, 256u, 5000u, 0u}) {
    const std::string text(length, 'p');
    tool.SetToolPunchConditionString(text.c_str());
    EXPECT_EQ(tool.GetToolPunchConditionString(), text);
  }
}

TEST(ToolInformationTest, NullPunchConditionsAreIgnored) {
  ToolInformation tool;
  tool.SetToolPunchConditionString("kept");
  tool.SetToolPunchConditionString(nullptr);
  EXPECT_STREQ(tool.GetToolPunchConditionString(), "kept");
}

TEST(ToolInformationTest, PunchConditionsMayBeSetFromTheirOwnText) {
  ToolInformation tool;
  tool.SetToolPunchConditionString("a text that is longer than any small buffer");
  tool.SetToolPunchConditionString(tool.GetToolPunchConditionString() + 7);
  EXPECT_STREQ(tool.GetToolPunchConditionString(), "that is longer than any small buffer");
}

TEST(ToolInformationTest, CopiesOwnTheirPunchConditions) {
  const std::string text(3000, 'q');
  auto source = std::make_unique<ToolInformation>();
  source->SetToolPunchConditionString(text.c_str());
  ToolInformation copied(*source);
  ToolInformation assigned;
  assigned.SetToolPunchConditionString("replaced");
  assigned = *source;
  EXPECT_NE(copied.GetToolPunchConditionString(), source->GetToolPunchConditionString());
  EXPECT_NE(assigned.GetToolPunchConditionString(), source->GetToolPunchConditionString());

  source->SetToolPunchConditionString("changed");
  EXPECT_EQ(copied.GetToolPunchConditionString(), text);
  source.reset();
  EXPECT_EQ(assigned.GetToolPunchConditionString(), text);
}

}  // namespace
