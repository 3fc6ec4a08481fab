#include "format/FormatColumns.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace qv {
namespace {

constexpr std::pair<std::string_view, std::string_view> kSlashNames[] = {
    {"RectangularTrueShape", "Rectangular/TrueShape"},
    {"C-CutPunch", "C-Cut/Punch"},
};

class Claims {
 public:
  void Take(const FormatItem& item) {
    if (item.Order == kAbsent) return;
    if (item.Name == kIgnore)
      TakeIgnored(item);
    else
      Add(item, item.Order);
  }

  std::vector<ColumnClaim> Taken() { return std::move(claims_); }

 private:
  void TakeIgnored(const FormatItem& item) {
    std::string_view rest = item.Order;
    for (std::size_t comma; (comma = rest.find(',')) != rest.npos; rest.remove_prefix(comma + 1))
      Add(item, rest.substr(0, comma));
    if (rest.empty()) return;
    const auto [position, fault] = ParseInt(rest);
    claims_.push_back({&item, kIgnore, rest, position, fault, ClaimState::Unended, {}});
  }

  void Add(const FormatItem& item, std::string_view order) {
    const auto [position, fault] = ParseInt(order);
    const std::string_view keyword = KeywordOf(item.Name);
    const auto [holder, isFirst] = holders_.try_emplace(position, keyword);
    const ClaimState state = isFirst ? ClaimState::Column : ClaimState::Taken;
    claims_.push_back({&item, keyword, order, position, fault, state, holder->second});
  }

  std::vector<ColumnClaim> claims_;
  std::unordered_map<int, std::string_view> holders_;
};

}  // namespace

std::string_view KeywordOf(std::string_view itemName) {
  for (const auto& [stored, keyword] : kSlashNames)
    if (itemName == stored) return keyword;
  return itemName;
}

std::string_view ItemNameOf(std::string_view keyword) {
  for (const auto& [stored, spelled] : kSlashNames)
    if (keyword == spelled) return stored;
  return keyword;
}

std::vector<ColumnClaim> ClaimsOf(const std::vector<FormatItem>& items) {
  Claims claims;
  for (const FormatItem& item : items) claims.Take(item);
  return claims.Taken();
}

std::vector<FormatColumn> ColumnsOf(const std::vector<ColumnClaim>& claims) {
  std::vector<FormatColumn> columns;
  for (const ColumnClaim& claim : claims)
    if (claim.state == ClaimState::Column) columns.push_back({claim.position, std::string(claim.keyword)});
  std::sort(columns.begin(), columns.end(), [](const FormatColumn& left, const FormatColumn& right) {
    return left.position < right.position;
  });
  return columns;
}

}  // namespace qv
