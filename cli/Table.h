#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace qv {

struct TableColumn {
  std::string header;
  bool isNumber = false;  ///< stands at the right
};

/// A table for people: a header, a rule and one line per row, fitted to a width.
class Table {
 public:
  /// Gives the text of a cell, in UTF-8.
  using Cell = std::function<std::string(std::size_t row, std::size_t column)>;

  Table(std::vector<TableColumn> columns, std::size_t rows, Cell cell);

  /// Makes the table fill at most so many columns of a terminal (0: any number): wide columns get narrower,
  /// though never so narrow that a number is cut, and if that is not enough the last ones are left out.
  void FitTo(int width);

  /// How many columns FitTo() left out.
  std::size_t LeftOut() const { return columns_.size() - widths_.size(); }

  std::string Header(bool isColoured) const;
  std::string Row(std::size_t row) const;

 private:
  std::string Line(const std::function<std::string(std::size_t column)>& text) const;
  int TotalWidth() const;
  int LimitFor(int available) const;

  std::vector<TableColumn> columns_;
  std::size_t rows_;
  Cell cell_;
  std::vector<int> widths_;  // of the columns that are shown
  std::vector<int> least_;   // what they may be narrowed to
};

}  // namespace qv
