#include "cli/Table.h"

#include "cli/DisplayText.h"
#include "support/CaseFile.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace qv {
namespace {

TEST(DisplayText, IsAsTheTableSays) {
  for (const auto& row : ReadTable("cli/tables/display.table")) {
    const std::string& text = row[1];
    const std::string shown = row[0] == "wide"       ? std::to_string(DisplayWidth(text))
                              : row[0] == "harmless" ? Harmless(text)
                                                     : CutToWidth(text, std::stoi(row[3]));
    EXPECT_EQ(shown, row[2]) << row[0] << " " << text;
  }
}

std::string Whole(const Table& table, std::size_t rows) {
  std::string text = table.Header(false);
  for (std::size_t row = 0; row < rows; ++row) text += table.Row(row);
  return text;
}

TEST(Table, WideColumnsGiveWayFirst) {
  const std::vector<std::vector<std::string>> cells = {
      {"short", "1234567890123", "a text that goes on and on", "x"}};
  Table table({{"Name"}, {"Number", true}, {"Comment"}, {"Last"}}, 1,
              [&](std::size_t row, std::size_t column) { return cells[row][column]; });
  table.FitTo(42);
  EXPECT_EQ(table.LeftOut(), 0u);
  EXPECT_EQ(Whole(table, 1),
            "Name          Number  Comment         Last\n"
            "─────  ─────────────  ──────────────  ────\n"
            "short  1234567890123  a text that g…  x\n");
  table.FitTo(30);
  EXPECT_EQ(table.LeftOut(), 2u);
}

// Whatever the cells hold, no line is wider than was asked for, and no number loses a digit.
TEST(Table, FitsAnyWidth) {
  std::mt19937 random(7);
  const char* const pieces[] = {"a", "株", "ü", "🙂", " ", "\t", "e\u0301"};
  for (int round = 0; round < 300; ++round) {
    const std::size_t columns = 1 + random() % 9;
    std::vector<std::vector<std::string>> cells(3, std::vector<std::string>(columns));
    std::vector<TableColumn> heads;
    for (std::size_t column = 0; column < columns; ++column) {
      heads.push_back({std::string(random() % 20, 'h'), column % 2 == 1});
      for (auto& row : cells)
        for (std::size_t size = random() % 20; size > 0; --size)
          row[column] += column % 2 == 1 ? "9" : pieces[random() % std::size(pieces)];
    }
    Table table(heads, cells.size(), [&](std::size_t row, std::size_t column) { return cells[row][column]; });
    const int width = 22 + static_cast<int>(random() % 100);
    table.FitTo(width);
    std::istringstream lines(Whole(table, cells.size()));
    for (std::string line; std::getline(lines, line);) ASSERT_LE(DisplayWidth(line), width) << line;
    for (std::size_t row = 0; row < cells.size(); ++row)
      for (std::size_t column = 1; column < columns - table.LeftOut(); column += 2)
        ASSERT_NE(table.Row(row).find(cells[row][column]), std::string::npos) << table.Row(row);
  }
}

}  // namespace
}  // namespace qv
