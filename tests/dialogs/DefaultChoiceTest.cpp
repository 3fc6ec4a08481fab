#include "dialogs/DefaultChoice.h"

#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

// Plays the steps of the table. Returns the name that OK stores.
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
  for (const auto& row : ReadTable("dialogs/tables/default.table"))
    EXPECT_EQ(NameStoredAfter(row[0], row[1]), row[2]) << row[0] << ": " << row[1];
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
