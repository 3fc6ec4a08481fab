#include "dialogs/DefaultChoice.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

// Plays what a user does with the box and the combo box: a word shows that format, "+" ticks the box and "-"
// clears it, "=word" types a name into the combo box. Returns the name that OK stores.
std::string NameStoredAfter(const std::string& stored, const std::string& script) {
  qv::DefaultChoice choice(stored);
  std::string shown;
  bool isTicked = false;
  std::istringstream steps(script);
  for (std::string step; steps >> step;) {
    if (step == "+") {
      isTicked = true;
      choice.Tick(shown);
    } else if (step == "-") {
      isTicked = false;
      choice.Clear(shown);
    } else if (step.front() == '=') {
      shown = step.substr(1);
    } else {
      shown = step;
      isTicked = choice.IsDefault(shown);
    }
  }
  return choice.Confirmed(isTicked, shown, stored);
}

TEST(DefaultChoiceTest, WhatIsStored) {
  const struct {
    const char* stored;
    const char* script;
    const char* expected;
  } cases[] = {
      {"", "A", ""},
      {"", "A +", "A"},
      {"", "A + -", ""},
      {"", "A + B", "A"},
      {"", "A + B + -", ""},
      {"A", "A", "A"},
      {"A", "A -", ""},
      {"A", "A - +", "A"},
      {"A", "B", "A"},
      {"A", "B +", "B"},
      {"A", "B + A", "B"},
      {"A", "B + A +", "A"},
      // Taking a tick back brings the stored default back, wherever it happens.
      {"A", "B + -", "A"},
      {"A", "B + - C", "A"},
      {"A", "B + C + -", "A"},
      // Taken from the default format it is gone, whichever format is shown at the end.
      {"A", "A - B", ""},
      {"A", "A - B + -", ""},
      {"A", "A - B + A", "B"},
      {"A", "A - A", ""},
      {"A", "B + A + -", ""},
      // Letter case makes no difference, except that a tick stores the shown spelling.
      {"form1", "Form1", "Form1"},
      {"form1", "Form1 -", ""},
      {"FORM1", "Form2", "FORM1"},
      // A typed name leaves the box alone.
      {"A", "A =New", "New"},
      {"A", "B =New", "A"},
      {"A", "B =New +", "New"},
      {"A", "B =a", ""},
      // A format without a name is never the default.
      {"", "=", ""},
  };
  for (const auto& row : cases)
    EXPECT_EQ(NameStoredAfter(row.stored, row.script), row.expected) << row.stored << ": " << row.script;
}

TEST(DefaultChoiceTest, TheBoxFollowsTheFormatShown) {
  qv::DefaultChoice choice("Form1");
  EXPECT_TRUE(choice.IsDefault("FORM1"));
  EXPECT_FALSE(choice.IsDefault("Form10"));
  choice.Tick("Form2");
  EXPECT_FALSE(choice.IsDefault("Form1"));
  EXPECT_TRUE(choice.IsDefault("form2"));
  choice.Clear("Form2");
  EXPECT_TRUE(choice.IsDefault("Form1"));
  EXPECT_FALSE(qv::DefaultChoice("").IsDefault(""));
}

}  // namespace
