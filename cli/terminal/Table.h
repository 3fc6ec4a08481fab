#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qv {

struct TableColumn {
  std::string header;
  bool isNumber = false;  ///< aligned right
};

/// A table for people: a header, a rule and one line per row, fitted to a width.
class Table {
 public:
  /// The text of each cell, in UTF-8.
  using Row = std::vector<std::string>;

  /// Columns are as wide as these rows want them. A table that may fill no more than `width` columns of a
  /// terminal (0: any number) has narrower ones, though never so narrow that a number of these rows is cut,
  /// and if that is not enough the last ones are left out.
  Table(std::vector<TableColumn> columns, const std::vector<Row>& sample, int width);

  /// How many columns are left out.
  std::size_t LeftOut() const { return columns_.size() - widths_.size(); }

  std::string Header(bool isColoured) const;
  /// Of any row. What does not fit is cut where the table has a width, unless it is a number.
  std::string Line(const Row& row) const;

 private:
  int TotalWidth() const;
  int LimitFor(int available) const;

  void Fit();

  std::vector<TableColumn> columns_;
  int width_;
  std::vector<int> widths_;  // of the columns that are shown
  std::vector<int> least_;   // what they may be narrowed to
};

}  // namespace qv
