#include "platform/spreadsheet/calc/CellText.h"

#include "support/CaseFile.h"

#include <gtest/gtest.h>

namespace {

TEST(CellText, IsThatOfTheStandardConversion) {
  for (const auto& row : ReadTable("workbook/calc/cell-texts.table")) {
    const double value = std::stod(row[1]);
    const std::string text = row[0] == "number" ? qv::NumberText(value)
                             : row[0] == "date" ? qv::DateText(value)
                                                : qv::BooleanText(value != 0);
    EXPECT_EQ(text, row[2]) << row[0] << " " << row[1];
  }
}

}  // namespace
