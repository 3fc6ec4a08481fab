#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qv {

/// A sample's rows as a format splits them, for a view to draw. Plain values: views link nothing of the
/// library.
struct Preview {
  struct Column {
    std::string head;     ///< the keyword; empty for what is more than the format's columns
    bool isUsed = false;  ///< otherwise its cells are read into nothing
    std::string remark;   ///< here and below: for a person, empty where there is none
  };
  struct Cell {
    std::string text;
    std::string remark;
  };
  enum class RowState { Header, Record, LeftOut };
  struct Row {
    std::int64_t line = 0;
    RowState state = RowState::Record;
    std::vector<Cell> cells;  ///< at most as many as there are columns
    std::string remark;       ///< on the row as a whole
  };

  std::vector<Column> columns;
  std::vector<Row> rows;
  std::string summary;  ///< "48 rows, 48 records, 2 remarks"

  std::string suggestion;  ///< what would surely fit better; empty where there is nothing to say
  bool canApply = false;   ///< the dialog's settings can be made so

  /// As views draw it, with the lines' numbers as first column. A row may be shorter than others.
  std::size_t ShownColumns() const { return columns.size() + 1; }
  std::string HeadAt(std::size_t column) const {
    if (column == 0) return "Line";
    return columns[column - 1].head.empty() ? "(not used)" : columns[column - 1].head;
  }
  std::string HeadRemarkAt(std::size_t column) const {
    return column == 0 ? std::string() : columns[column - 1].remark;
  }
  bool IsGrey(std::size_t column) const { return column > 0 && !columns[column - 1].isUsed; }
  std::string TextAt(std::size_t row, std::size_t column) const {
    return column == 0 ? std::to_string(rows[row].line) : CellAt(row, column).text;
  }
  std::string RemarkAt(std::size_t row, std::size_t column) const {
    return column == 0 ? rows[row].remark : CellAt(row, column).remark;
  }
  /// What is said below the rows: the summary, and all remarks on the row at the keyboard's cursor, which
  /// needs no mouse then. -1: it is at none.
  std::string SentenceAt(std::ptrdiff_t cursor) const {
    const auto row = static_cast<std::size_t>(cursor);
    if (row >= rows.size()) return summary;
    std::string sentence = summary;
    const auto add = [&](const std::string& head, const std::string& remark) {
      if (!remark.empty()) sentence += "\n" + head + ": " + remark;
    };
    add("Line " + TextAt(row, 0), rows[row].remark);
    for (std::size_t column = 1; column < ShownColumns(); ++column) {
      if (rows[row].state == RowState::Header) add(HeadAt(column), HeadRemarkAt(column));
      add(HeadAt(column), RemarkAt(row, column));
    }
    return sentence;
  }

 private:
  Cell CellAt(std::size_t row, std::size_t column) const {
    return column <= rows[row].cells.size() ? rows[row].cells[column - 1] : Cell();
  }
};

}  // namespace qv
