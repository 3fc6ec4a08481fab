#include "dialogs/ColumnLists.h"

#include "engines/columns/Numbers.h"
#include "engines/columns/Words.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace qv {

namespace {

constexpr std::string_view kIgnore = "Ignore";
constexpr std::string_view kAbsent = "-1";

constexpr std::pair<std::string_view, std::string_view> kSlashNames[] = {
    {"RectangularTrueShape", "Rectangular/TrueShape"},
    {"C-CutPunch", "C-Cut/Punch"},
};

constexpr std::string_view kNeverShown[] = {"PartPositionInGroup", "GroupName"};

constexpr std::string_view kKeyColumns[] = {"PartName", "ID"};

// A comment or a text between the items comes out of the file as an item, too. It can be no column and could
// not be written back.
bool IsShown(const FormatItem& item) { return !item.Name.starts_with('#') && IsShownName(item.Name); }

bool IsKeyColumn(const std::string& name) {
  return std::any_of(std::begin(kKeyColumns), std::end(kKeyColumns),
                     [&](std::string_view key) { return EqualsIgnoringCase(name, key); });
}

struct Claim {
  int position;
  std::string name;
};

void ClaimIgnored(const std::string& order, std::vector<Claim>& claims) {
  std::string_view rest = order;
  while (!rest.empty()) {
    const std::string_view text = rest.substr(0, rest.find(','));
    if (!text.empty()) claims.push_back({ParseInt(text).value, std::string(kIgnore)});
    rest.remove_prefix(std::min(rest.size(), text.size() + 1));
  }
}

Selection Tidied(Selection ranks, std::size_t count) {
  std::sort(ranks.begin(), ranks.end());
  ranks.erase(std::unique(ranks.begin(), ranks.end()), ranks.end());
  ranks.erase(std::lower_bound(ranks.begin(), ranks.end(), count), ranks.end());
  return ranks;
}

}  // namespace

std::string ShownItemName(const std::string& itemName) {
  for (const auto& [stored, shown] : kSlashNames)
    if (itemName == stored) return std::string(shown);
  return itemName;
}

std::string StoredItemName(const std::string& shownName) {
  for (const auto& [stored, shown] : kSlashNames)
    if (shownName == shown) return std::string(stored);
  return shownName;
}

bool IsShownName(const std::string& name) {
  return std::find(std::begin(kNeverShown), std::end(kNeverShown), name) == std::end(kNeverShown);
}

void ColumnLists::Show(const std::vector<FormatItem>& items) {
  *this = {};
  std::vector<Claim> claims;
  for (const FormatItem& item : items) {
    if (!IsShown(item)) continue;
    plan_.push_back(ShownItemName(item.Name));
    if (item.Order == kAbsent) continue;
    if (item.Name == kIgnore)
      ClaimIgnored(item.Order, claims);
    else
      claims.push_back({ParseInt(item.Order).value, plan_.back()});
  }
  std::stable_sort(claims.begin(), claims.end(),
                   [](const Claim& left, const Claim& right) { return left.position < right.position; });
  for (Claim& claim : claims) sequence_.push_back(std::move(claim.name));
}

std::vector<FormatItem> ColumnLists::Items() const {
  std::unordered_map<std::string_view, std::vector<std::size_t>> places;
  for (std::size_t rank = sequence_.size(); rank-- > 0;) places[sequence_[rank]].push_back(rank);

  std::vector<FormatItem> items;
  for (const std::string& shown : plan_) {
    FormatItem& item = items.emplace_back(FormatItem{StoredItemName(shown), std::string(kAbsent)});
    std::vector<std::size_t>& free = places[shown];
    if (free.empty()) continue;
    item.Order.clear();
    if (shown == kIgnore) {
      for (; !free.empty(); free.pop_back()) item.Order += std::to_string(free.back()) + ",";
    } else {
      // A file may hold an item twice: each entry keeps a place of its own.
      item.Order = std::to_string(free.back());
      free.pop_back();
    }
  }
  return items;
}

void ColumnLists::SelectPlanItems(Selection ranks) {
  planSelection_ = Tidied(std::move(ranks), plan_.size());
}

void ColumnLists::SelectSequence(Selection ranks) {
  sequenceSelection_ = Tidied(std::move(ranks), sequence_.size());
}

bool ColumnLists::IsInSequence(const std::string& name) const {
  return std::find(sequence_.begin(), sequence_.end(), name) != sequence_.end();
}

void ColumnLists::Add() {
  for (const std::size_t rank : planSelection_) {
    const std::string& name = plan_[rank];
    if (name == kIgnore || !IsInSequence(name)) sequence_.push_back(name);
  }
}

void ColumnLists::Delete() {
  std::vector<std::string> kept;
  Selection keys;
  auto selected = sequenceSelection_.begin();
  for (std::size_t rank = 0; rank < sequence_.size(); ++rank) {
    const bool isSelected = selected != sequenceSelection_.end() && *selected == rank;
    if (isSelected) ++selected;
    if (isSelected && !IsKeyColumn(sequence_[rank])) continue;
    if (isSelected) keys.push_back(kept.size());
    kept.push_back(std::move(sequence_[rank]));
  }
  sequence_ = std::move(kept);
  sequenceSelection_ = std::move(keys);
}

void ColumnLists::MoveUp() {
  if (CanMoveUp()) MoveSelected(sequenceSelection_.front(), sequenceSelection_.front() - 1);
}

void ColumnLists::MoveDown() {
  if (CanMoveDown()) MoveSelected(sequenceSelection_.front(), sequenceSelection_.front() + 1);
}

void ColumnLists::MoveSelected(std::size_t from, std::size_t to) {
  std::swap(sequence_[from], sequence_[to]);
  sequenceSelection_.front() = to;
}

bool ColumnLists::CanDelete() const {
  return std::any_of(sequenceSelection_.begin(), sequenceSelection_.end(),
                     [this](std::size_t rank) { return !IsKeyColumn(sequence_[rank]); });
}

bool ColumnLists::CanMoveUp() const {
  return sequenceSelection_.size() == 1 && sequenceSelection_.front() > 0;
}

bool ColumnLists::CanMoveDown() const {
  return sequenceSelection_.size() == 1 && sequenceSelection_.front() + 1 < sequence_.size();
}

}  // namespace qv
