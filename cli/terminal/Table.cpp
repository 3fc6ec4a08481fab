#include "cli/terminal/Table.h"

#include "cli/terminal/DisplayText.h"

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

Table::Table(std::vector<TableColumn> columns, const std::vector<Row>& sample, int width)
    : columns_(std::move(columns)), width_(width) {
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    int values = 0;
    for (const Row& row : sample) values = std::max(values, DisplayWidth(Harmless(row[column])));
    const int natural = std::max(values, DisplayWidth(Harmless(columns_[column].header)));
    widths_.push_back(natural);
    least_.push_back(columns_[column].isNumber ? std::max(values, std::min(natural, kNarrowest))
                                               : std::min(natural, kNarrowest));
  }
  Fit();
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

void Table::Fit() {
  if (width_ == 0 || widths_.empty() || TotalWidth() <= width_) return;
  const int limit = LimitFor(width_ - kGap * (static_cast<int>(widths_.size()) - 1));
  for (std::size_t column = 0; column < widths_.size(); ++column)
    widths_[column] = std::max(std::min(widths_[column], limit), least_[column]);
  while (widths_.size() > 1 && TotalWidth() > width_) widths_.pop_back();
  widths_.back() = std::min(widths_.back(), std::max(width_ - (TotalWidth() - widths_.back()), 1));
}

std::string Table::Line(const Row& row) const {
  std::string line;
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    const bool isNumber = columns_[column].isNumber;
    std::string cell = Harmless(row[column]);
    if (width_ > 0 && !isNumber) cell = CutToWidth(cell, widths_[column]);
    const std::string padding(static_cast<std::size_t>(std::max(widths_[column] - DisplayWidth(cell), 0)),
                              ' ');
    if (column > 0) line += std::string(kGap, ' ');
    line += isNumber ? padding + cell : cell + padding;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

std::string Table::Header(bool isColoured) const {
  Row names, rule;
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    names.push_back(CutToWidth(Harmless(columns_[column].header), widths_[column]));
    rule.push_back(Repeat(kRule, widths_[column]));
  }
  std::string line = Line(names);
  line.pop_back();
  return Bold(line, isColoured) + "\n" + Line(rule);
}

}  // namespace qv
