#include "cli/terminal/Table.h"

#include "cli/terminal/DisplayText.h"
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

std::string Whole(const Table& table, const std::vector<Table::Row>& rows) {
  std::string text = table.Header(false);
  for (const Table::Row& row : rows) text += table.Line(row);
  return text;
}

TEST(Table, WideColumnsGiveWayFirst) {
  const std::vector<Table::Row> rows = {{"short", "1234567890123", "a text that goes on and on", "x"}};
  const std::vector<TableColumn> columns = {{"Name"}, {"Number", true}, {"Comment"}, {"Last"}};
  const Table table(columns, rows, 42);
  EXPECT_EQ(table.LeftOut(), 0u);
  EXPECT_EQ(Whole(table, rows),
            "Name          Number  Comment         Last\n"
            "─────  ─────────────  ──────────────  ────\n"
            "short  1234567890123  a text that g…  x\n");
  EXPECT_EQ(Table(columns, rows, 30).LeftOut(), 2u);
}

// Whatever the cells hold, no line is wider than was asked for, and no number loses a digit.
TEST(Table, FitsAnyWidth) {
  std::mt19937 random(7);
  const char* const pieces[] = {"a", "株", "ü", "🙂", " ", "\t", "e\u0301"};
  for (int round = 0; round < 300; ++round) {
    const std::size_t columns = 1 + random() % 9;
    std::vector<Table::Row> cells(3, Table::Row(columns));
    std::vector<TableColumn> heads;
    for (std::size_t column = 0; column < columns; ++column) {
      heads.push_back({std::string(random() % 20, 'h'), column % 2 == 1});
      for (auto& row : cells)
        for (std::size_t size = random() % 20; size > 0; --size)
          row[column] += column % 2 == 1 ? "9" : pieces[random() % std::size(pieces)];
    }
    const int width = 22 + static_cast<int>(random() % 100);
    const Table table(heads, cells, width);
    std::istringstream lines(Whole(table, cells));
    for (std::string line; std::getline(lines, line);) ASSERT_LE(DisplayWidth(line), width) << line;
    for (const Table::Row& row : cells)
      for (std::size_t column = 1; column < columns - table.LeftOut(); column += 2)
        ASSERT_NE(table.Line(row).find(row[column]), std::string::npos) << table.Line(row);
  }
}

}  // namespace
}  // namespace qv
