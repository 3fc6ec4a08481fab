#include "cli/FormatColumns.h"

#include "dialogs/ColumnLists.h"

#include <charconv>
#include <limits>
#include <map>
#include <string_view>

namespace qv {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

// The number that the text starts with, 0 when it starts with none: orders are taken as the C library does.
int LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc::result_out_of_range) return number;
  return text[0] == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

}  // namespace

std::vector<FormatColumn> ColumnsOf(const OptionForm& form) {
  std::map<int, std::string> byPosition;
  for (const FormatItem& item : form.Items) {
    if (item.Order == "-1") continue;
    if (item.Name != "Ignore") {
      byPosition.try_emplace(LeadingNumber(item.Order), ShownItemName(item.Name));
      continue;
    }
    // Each position is followed by a comma; what follows the last one is none.
    std::string_view rest = item.Order;
    for (std::size_t comma; (comma = rest.find(',')) != std::string_view::npos; rest.remove_prefix(comma + 1))
      byPosition.try_emplace(LeadingNumber(rest.substr(0, comma)), item.Name);
  }
  std::vector<FormatColumn> columns;
  for (const auto& [position, keyword] : byPosition) columns.push_back({position, keyword});
  return columns;
}

}  // namespace qv
