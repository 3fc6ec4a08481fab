#include "cli/Table.h"

#include "cli/DisplayText.h"
#include "cli/Streams.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace qv {
namespace {

constexpr int kGap = 2;         // blanks between columns
constexpr int kNarrowest = 10;  // a wider column is not made narrower than this
constexpr const char* kRule = "─";

std::string Repeat(std::string_view text, int times) {
  std::string out;
  for (int count = 0; count < times; ++count) out += text;
  return out;
}

}  // namespace

Table::Table(std::vector<TableColumn> columns, std::size_t rows, Cell cell)
    : columns_(std::move(columns)), rows_(rows), cell_(std::move(cell)) {
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    int values = 0;
    for (std::size_t row = 0; row < rows_; ++row)
      values = std::max(values, DisplayWidth(Harmless(cell_(row, column))));
    const int natural = std::max(values, DisplayWidth(Harmless(columns_[column].header)));
    widths_.push_back(natural);
    least_.push_back(columns_[column].isNumber ? std::max(values, std::min(natural, kNarrowest))
                                               : std::min(natural, kNarrowest));
  }
}

int Table::TotalWidth() const {
  const int gaps = kGap * (static_cast<int>(widths_.size()) - 1);
  return std::accumulate(widths_.begin(), widths_.end(), gaps);
}

// The widest that a column may be for all to fit: what is saved is taken from the widest ones alone.
int Table::LimitFor(int available) const {
  int limit = *std::max_element(widths_.begin(), widths_.end());
  const auto total = [&] {
    int sum = 0;
    for (std::size_t column = 0; column < widths_.size(); ++column)
      sum += std::max(std::min(widths_[column], limit), least_[column]);
    return sum;
  };
  while (limit > kNarrowest && total() > available) --limit;
  return limit;
}

void Table::FitTo(int width) {
  if (width == 0 || widths_.empty() || TotalWidth() <= width) return;
  const int limit = LimitFor(width - kGap * (static_cast<int>(widths_.size()) - 1));
  for (std::size_t column = 0; column < widths_.size(); ++column)
    widths_[column] = std::max(std::min(widths_[column], limit), least_[column]);
  while (widths_.size() > 1 && TotalWidth() > width) widths_.pop_back();
  widths_.back() = std::min(widths_.back(), std::max(width - (TotalWidth() - widths_.back()), 1));
}

std::string Table::Line(const std::function<std::string(std::size_t column)>& text) const {
  std::string line;
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    const std::string cell = CutToWidth(Harmless(text(column)), widths_[column]);
    const std::string padding(static_cast<std::size_t>(std::max(widths_[column] - DisplayWidth(cell), 0)),
                              ' ');
    if (column > 0) line += std::string(kGap, ' ');
    line += columns_[column].isNumber ? padding + cell : cell + padding;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::string Table::Header(bool isColoured) const {
  const std::string names = Line([this](std::size_t column) { return columns_[column].header; });
  const std::string rule = Line([this](std::size_t column) { return Repeat(kRule, widths_[column]); });
  return Bold(names, isColoured) + "\n" + rule + "\n";
}

std::string Table::Row(std::size_t row) const {
  return Line([&](std::size_t column) { return cell_(row, column); }) + "\n";
}

}  // namespace qv
