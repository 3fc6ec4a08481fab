#include "dialogs/model/ColumnLists.h"

#include "format/FormatColumns.h"
#include "text/Ascii.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace qv {

namespace {

constexpr std::string_view kNeverShown[] = {"PartPositionInGroup", "GroupName"};

constexpr std::string_view kKeyColumns[] = {"PartName", "ID"};

// A comment or a text between the items comes out of the file as an item, too. It can be no column and could
// not be written back.
bool IsShown(const FormatItem& item) { return !item.Name.starts_with('#') && IsShownName(item.Name); }

bool IsKeyColumn(const std::string& name) {
  return std::any_of(std::begin(kKeyColumns), std::end(kKeyColumns),
                     [&](std::string_view key) { return EqualsIgnoringCase(name, key); });
}

Selection SortedBelow(std::size_t count, Selection indexes) {
  std::sort(indexes.begin(), indexes.end());
  indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
  indexes.erase(std::lower_bound(indexes.begin(), indexes.end(), count), indexes.end());
  return indexes;
}

}  // namespace

bool IsShownName(const std::string& name) {
  return std::find(std::begin(kNeverShown), std::end(kNeverShown), name) == std::end(kNeverShown);
}

// Unlike an import, the sequence shows every claim of a position, and an ignored column's last one although
// no comma follows it; but nothing between two commas is no position.
void ColumnLists::Show(const std::vector<FormatItem>& items) {
  *this = {};
  for (const FormatItem& item : items)
    if (IsShown(item)) plan_.emplace_back(KeywordOf(item.Name));
  auto claims = ClaimsOf(items);
  std::erase_if(claims, [](const ColumnClaim& claim) {
    return !IsShown(*claim.item) || (claim.keyword == kIgnore && claim.order.empty());
  });
  std::stable_sort(claims.begin(), claims.end(), [](const ColumnClaim& left, const ColumnClaim& right) {
    return left.position < right.position;
  });
  for (const ColumnClaim& claim : claims) sequence_.emplace_back(claim.keyword);
}

std::vector<FormatItem> ColumnLists::Items() const {
  std::unordered_map<std::string_view, std::vector<std::size_t>> places;
  for (std::size_t index = sequence_.size(); index-- > 0;) places[sequence_[index]].push_back(index);

  std::vector<FormatItem> items;
  for (const std::string& shown : plan_) {
    FormatItem& item = items.emplace_back(FormatItem{std::string(ItemNameOf(shown)), std::string(kAbsent)});
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

void ColumnLists::SelectSequence(Selection indexes) {
  sequenceSelection_ = SortedBelow(sequence_.size(), std::move(indexes));
}

std::size_t ColumnLists::Find(const std::string& name) const {
  return static_cast<std::size_t>(std::find(sequence_.begin(), sequence_.end(), name) - sequence_.begin());
}

std::vector<bool> ColumnLists::UsedPlanItems() const {
  const std::unordered_set<std::string_view> names(sequence_.begin(), sequence_.end());
  std::vector<bool> used;
  for (const std::string& name : plan_) used.push_back(name != kIgnore && names.contains(name));
  return used;
}

void ColumnLists::Add(Selection planItems) { Insert(std::move(planItems), sequence_.size()); }

void ColumnLists::Insert(Selection planItems, std::size_t place) {
  place = std::min(place, sequence_.size());
  for (const std::size_t index : SortedBelow(plan_.size(), std::move(planItems))) {
    const std::string& name = plan_[index];
    const std::size_t found = name == kIgnore ? sequence_.size() : Find(name);
    cursor_ = found == sequence_.size() ? place : found;
    if (found != sequence_.size()) continue;
    for (std::size_t& selected : sequenceSelection_) selected += selected >= place;
    sequence_.insert(sequence_.begin() + static_cast<std::ptrdiff_t>(place++), name);
  }
}

void ColumnLists::MoveTo(std::size_t place) {
  if (sequenceSelection_.empty()) return;
  std::vector<std::string> moved, before, after;
  for (std::size_t index = 0; index < sequence_.size(); ++index) {
    const bool isMoved = std::binary_search(sequenceSelection_.begin(), sequenceSelection_.end(), index);
    (isMoved ? moved : index < place ? before : after).push_back(sequence_[index]);
  }
  sequence_ = std::move(before);
  cursor_ = sequence_.size();
  for (std::size_t& selected : sequenceSelection_)
    selected = *cursor_ + static_cast<std::size_t>(&selected - sequenceSelection_.data());
  sequence_.insert(sequence_.end(), moved.begin(), moved.end());
  sequence_.insert(sequence_.end(), after.begin(), after.end());
}

void ColumnLists::Replace(const std::vector<std::string>& keywords) {
  const auto before = std::exchange(sequence_, {});
  sequenceSelection_.clear();
  cursor_.reset();
  for (const std::string& keyword : keywords)
    sequence_.push_back(IsShownName(keyword) ? keyword : std::string(kIgnore));
  for (const std::string& name : before)
    if (IsKeyColumn(name) && Find(name) == sequence_.size()) sequence_.push_back(name);
  for (const std::string& name : sequence_)
    if (std::find(plan_.begin(), plan_.end(), name) == plan_.end()) plan_.push_back(name);
}

void ColumnLists::Delete() {
  std::vector<std::string> kept;
  Selection keys;
  std::optional<std::size_t> firstGap;
  auto selected = sequenceSelection_.begin();
  for (std::size_t index = 0; index < sequence_.size(); ++index) {
    const bool isSelected = selected != sequenceSelection_.end() && *selected == index;
    if (isSelected) ++selected;
    if (isSelected && !IsKeyColumn(sequence_[index])) {
      firstGap = firstGap.value_or(kept.size());
      continue;
    }
    if (isSelected) keys.push_back(kept.size());
    kept.push_back(std::move(sequence_[index]));
  }
  sequence_ = std::move(kept);
  sequenceSelection_ = std::move(keys);
  if (sequence_.empty())
    cursor_.reset();
  else if (firstGap)
    cursor_ = std::min(*firstGap, sequence_.size() - 1);
}

void ColumnLists::MoveUp() {
  if (sequenceSelection_.empty() || sequenceSelection_.front() == 0) return;
  for (std::size_t& index : sequenceSelection_) {
    std::swap(sequence_[index], sequence_[index - 1]);
    --index;
  }
  cursor_ = sequenceSelection_.front();
}

void ColumnLists::MoveDown() {
  if (sequenceSelection_.empty() || sequenceSelection_.back() + 1 == sequence_.size()) return;
  for (auto at = sequenceSelection_.rbegin(); at != sequenceSelection_.rend(); ++at) {
    std::swap(sequence_[*at], sequence_[*at + 1]);
    ++*at;
  }
  cursor_ = sequenceSelection_.back();
}

bool ColumnLists::CanDelete() const {
  return std::any_of(sequenceSelection_.begin(), sequenceSelection_.end(),
                     [this](std::size_t index) { return !IsKeyColumn(sequence_[index]); });
}

bool ColumnLists::CanMoveUp() const {
  return sequenceSelection_.size() == 1 && sequenceSelection_.front() > 0;
}

bool ColumnLists::CanMoveDown() const {
  return sequenceSelection_.size() == 1 && sequenceSelection_.front() + 1 < sequence_.size();
}

}  // namespace qv
