#pragma once

#include "format/OptionForm.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qv {

/// The ranks of a list's selected entries, ascending.
using Selection = std::vector<std::size_t>;

/// The name under which the dialog shows an item: an XML tag cannot hold the slash that two keywords have.
std::string ShownItemName(const std::string& itemName);
std::string StoredItemName(const std::string& shownName);

/// False for the two names that the dialogs never show.
bool IsShownName(const std::string& name);

/// The dialog's two lists: "Plan items", what a format can use, and the sequence, its columns in order. Only
/// `Ignore` can be added to the sequence more than once, and the key column cannot be taken out.
class ColumnLists {
 public:
  /// Fills both lists from a format's items. Columns stand in the order of their positions; gaps close, and
  /// the first item that claims a position stands before later ones.
  void Show(const std::vector<FormatItem>& items);

  /// The items that the lists describe, one per entry of "Plan items".
  std::vector<FormatItem> Items() const;

  const std::vector<std::string>& PlanItems() const { return plan_; }
  const std::vector<std::string>& Sequence() const { return sequence_; }

  /// Ranks outside the list are left out; the rest is sorted.
  void SelectPlanItems(Selection ranks);
  void SelectSequence(Selection ranks);
  const Selection& PlanSelection() const { return planSelection_; }
  const Selection& SequenceSelection() const { return sequenceSelection_; }

  /// Appends the selected plan items.
  void Add();
  /// Removes the selected entries of the sequence, except the key column, which stays selected.
  void Delete();
  /// Move the one selected entry; nothing happens where it cannot move.
  void MoveUp();
  void MoveDown();

  bool CanDelete() const;
  bool CanMoveUp() const;
  bool CanMoveDown() const;

 private:
  bool IsInSequence(const std::string& name) const;
  void MoveSelected(std::size_t from, std::size_t to);

  std::vector<std::string> plan_;
  std::vector<std::string> sequence_;
  Selection planSelection_;
  Selection sequenceSelection_;
};

}  // namespace qv
