#pragma once

#include "format/OptionForm.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qv {

/// The indexes of a list's selected entries, ascending.
using Selection = std::vector<std::size_t>;

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
  /// For each plan item whether adding it would change nothing, as it is in the sequence already.
  std::vector<bool> UsedPlanItems() const;

  /// Indexes outside the list are left out; the rest is sorted.
  void SelectSequence(Selection indexes);
  const Selection& SequenceSelection() const { return sequenceSelection_; }

  /// The entry of the sequence that the last change is about: what was added or moved, or the neighbour of
  /// what was deleted. A view scrolls it into sight and puts the keyboard's cursor there.
  std::optional<std::size_t> Cursor() const { return cursor_; }

  /// Appends these plan items, as far as they are there.
  void Add(Selection planItems);
  /// The same before the entry of the sequence at `place`.
  void Insert(Selection planItems, std::size_t place);
  /// Moves the selected entries of the sequence together before the entry at `place`.
  void MoveTo(std::size_t place);
  /// Makes these keywords the sequence, with `Ignore` for those that are never shown. What is no plan item
  /// becomes one, and a key column that is not among them stays, as last.
  void Replace(const std::vector<std::string>& keywords);
  /// Removes the selected entries of the sequence, except the key column, which stays selected.
  void Delete();
  /// Move all selected entries one place; nothing happens where one of them cannot move.
  void MoveUp();
  void MoveDown();

  /// Whether the buttons can be used. Those that move are for one selected entry.
  bool CanDelete() const;
  bool CanMoveUp() const;
  bool CanMoveDown() const;

 private:
  std::size_t Find(const std::string& name) const;
  std::vector<std::string> plan_;
  std::vector<std::string> sequence_;
  Selection sequenceSelection_;
  std::optional<std::size_t> cursor_;
};

}  // namespace qv
