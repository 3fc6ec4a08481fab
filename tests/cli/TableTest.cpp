#include "cli/Table.h"

#include "cli/DisplayText.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace qv {
namespace {

TEST(DisplayText, WidthsAreThoseOfATerminal) {
  const std::pair<const char*, int> kCases[] = {
      {"", 0},     {"abc", 3}, {"Müller", 6}, {"株式会社", 8}, {"ｶﾌﾞ", 3}, {"e\u0301tude", 5},
      {"🙂", 2}, {"…", 1},   {"한국", 4},   {"Ａ", 2},
  };
  for (const auto& [text, width] : kCases) EXPECT_EQ(DisplayWidth(text), width) << text;
}

TEST(DisplayText, NothingThatControlsATerminalComesThrough) {
  const std::pair<std::string, const char*> kCases[] = {
      {"plain ü 株", "plain ü 株"},
      {"\x1b]0;title\x07", "␛]0;title␇"},
      {std::string("a\0b", 3), "a␀b"},
      {"a\tb\r\nc", "a␉b␍␊c"},
      {"\x7f", "␡"},
      {"\u009b31m", "\uFFFD31m"},          // the one-character introducer of control sequences
      {"\u202Egnp.exe", "\uFFFDgnp.exe"},  // written from right to left
      {"a\u2066b\u2069\u200B", "a\uFFFDb\uFFFD\uFFFD"},
  };
  for (const auto& [text, shown] : kCases) EXPECT_EQ(Harmless(text), shown);
}

TEST(DisplayText, CutsBetweenCharacters) {
  struct Case {
    const char* text;
    int width;
    const char* shown;
  };
  const Case kCases[] = {{"abcdef", 6, "abcdef"},    {"abcdef", 5, "abcd…"},
                         {"株式会社", 7, "株式会…"}, {"株式会社", 6, "株式…"},
                         {"株式", 1, "…"},           {"e\u0301e\u0301e\u0301", 2, "e\u0301…"}};
  for (const Case& c : kCases) EXPECT_EQ(CutToWidth(c.text, c.width), c.shown) << c.text << " " << c.width;
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
