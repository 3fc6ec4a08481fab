#include "platform/calc/CellText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// The expected texts are those that VariantChangeTypeEx gives for the same values in the locale en-US.

TEST(CellText, WritesNumbersAsVariantsDo) {
  const std::pair<double, const char*> cases[] = {
      {1.5, "1.5"},
      {3, "3"},
      {-1.25, "-1.25"},
      {-0.0, "0"},
      {1e20, "1E+20"},
      {1.0 / 3, "0.333333333333333"},
      {0.1 + 0.2, "0.3"},
      {0.0001, "0.0001"},
      {1e-5, "1E-05"},
      {1e14, "100000000000000"},
      {1e15, "1E+15"},
      {123456789012345, "123456789012345"},
      {1234567890123456, "1.23456789012346E+15"},
      {2e-300, "2E-300"},
      {1e100, "1E+100"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(qv::NumberText(value), text);
}

TEST(CellText, WritesBooleansAsVariantsDo) {
  EXPECT_EQ(qv::BooleanText(true), "-1");
  EXPECT_EQ(qv::BooleanText(false), "0");
}

TEST(CellText, WritesDatesAsVariantsDo) {
  const std::pair<double, const char*> cases[] = {
      {45322, "1/31/2024"},
      {45322.5, "1/31/2024 12:00:00 PM"},
      {45322 + 64801.0 / 86400, "1/31/2024 6:00:01 PM"},
      {0, "12:00:00 AM"},
      {0.5, "12:00:00 PM"},
      {1, "12/31/1899"},
      {60, "2/28/1900"},
      {61, "3/1/1900"},
      {-1, "12/29/1899"},
      {45321 + 86399.9 / 86400, "1/31/2024"},
      {1e9, "1000000000"},
      {std::numeric_limits<double>::quiet_NaN(), "nan"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(qv::DateText(value), text);
}

}  // namespace
