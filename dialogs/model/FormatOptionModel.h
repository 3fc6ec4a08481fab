#pragma once

#include "dialogs/model/ColumnLists.h"
#include "dialogs/model/OptionControls.h"
#include "format/FormatList.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace qv {

/// A format's name as a host reads it back must fit 100 characters with its terminator.
inline constexpr std::size_t kMaxFormatName = 99;

struct FormatOptionFiles {
  std::string configuration;  ///< the format file
  std::string settings;       ///< Setting.ini
};

/// Which format the dialog's box makes the user's default. Names are compared without regard to case, and an
/// empty name means no default.
class DefaultChoice {
 public:
  DefaultChoice() = default;
  explicit DefaultChoice(std::string stored) : remembered_(std::move(stored)) {}

  /// Whether the box is ticked when this format is shown.
  bool IsDefault(const std::string& formatName) const;

  /// The box was ticked or cleared while the combo box read `formatName`. Clearing it on the default leaves
  /// no default; clearing it on another format takes back what ticking it there had done.
  void Tick(const std::string& formatName) { chosen_ = formatName; }
  void Clear(const std::string& formatName);

  /// The name to store when the dialog ends with OK, the box and the combo box being as given and `stored`
  /// being what is stored now.
  std::string Confirmed(bool isTicked, const std::string& formatName, const std::string& stored) const;

 private:
  const std::string& Name() const { return chosen_.empty() ? remembered_ : chosen_; }

  std::string remembered_;  // as stored when the dialog opened
  std::string chosen_;      // ticked since
};

/// The rules of the format option dialog, without any window: the formats of one format file, the one that is
/// shown and edited, and what becomes of them. A view writes the controls' values into Controls() before a
/// command and shows everything again after it. Nothing reaches a file before Ok().
class FormatOptionModel {
 public:
  explicit FormatOptionModel(FormatOptionFiles files) : files_(std::move(files)) {}

  /// Loads the format file and shows the format `formatName`, or the file's current one when it is empty. A
  /// name that no format bears is shown as a new format. Returns what the user should be told, else empty: a
  /// file that cannot be understood will be replaced as a whole by OK.
  std::string Open(const std::string& formatName);

  /// The formats with their edits, except those of the shown one.
  const std::vector<OptionForm>& Formats() const { return edits_.formats.Formats; }
  /// The index of the shown format; Formats().size() when they do not hold it.
  std::size_t ShownIndex() const;

  OptionControls& Controls() { return edits_.controls; }
  const OptionControls& Controls() const { return edits_.controls; }
  const ColumnLists& Columns() const { return edits_.columns; }
  const OptionEnabling& Enabling() const { return edits_.enabling; }

  /// Shows the format at the index. The edits of the one shown before are kept: under its name, or as a new
  /// format where the combo box reads a usable new name. False with a sentence for the user when they cannot
  /// be kept; that format stays shown.
  bool ShowFormat(std::size_t index, std::string& complaint);
  /// Shows a format that need not be one of the file's; what was edited before is forgotten.
  void ShowForm(const OptionForm& form);
  /// What the name in the combo box leads to, where it is not that of the shown format.
  std::string NameHint() const;
  /// Takes the shown format out of the formats, and with it what was edited in it, and shows its neighbour.
  void DeleteShown();
  void SetAsDefault(bool isTicked);
  void TickOther(bool isTicked);
  void Add(Selection planItems);
  /// Changes the lists by one of their functions, and what can be done next.
  template <class Function, class... Given>
  void Change(Function function, Given&&... given) {
    (edits_.columns.*function)(std::forward<Given>(given)...);
    UpdateEnabling();
  }
  /// Sets the controls for lines that are split so.
  void TakeLayout(const SplitRules& layout);

  /// To be called after everything that a user does: what has changed since the last call becomes one step of
  /// undo. What is typed into one control, a character after the other, is one step too.
  void EndStep();
  /// False when there is nothing to undo or redo.
  bool Undo() { return GoBack(undo_, redo_); }
  bool Redo() { return GoBack(redo_, undo_); }

  /// The format that the controls and lists describe, under the combo box's name.
  OptionForm Form() const;

  /// Puts Form() among the formats in memory: in the place of the shown format, or as a new one when the
  /// combo box reads a new name. False with a sentence for the user when that cannot be.
  bool StoreForm(std::string& complaint);

  /// Stores the form, makes it the current format, writes the format file and then the default format's name.
  /// False with a sentence for the user when that cannot be; both files then stand as they were. True with a
  /// sentence when something of what was saved will not be as the user may expect, else with none.
  bool Ok(std::string& sentence);

 private:
  /// What OK saves and Cancel forgets.
  struct Edits {
    FormatList formats;
    OptionForm shown;  // as it is in `formats`
    OptionControls controls, controlsAsShown;
    ColumnLists columns;
    std::vector<std::string> sequenceAsShown;
    OptionEnabling enabling;
    DefaultChoice defaultChoice;
  };
  using History = std::vector<Edits>;
  enum class TypedInto { Nothing, FormatName, StartLine, OtherDelimiters };

  static TypedInto WhatWasTypedInto(const OptionControls& before, const OptionControls& after);
  bool IsStep() const;
  bool GoBack(History& from, History& to);

  bool IsEdited() const;
  bool HasUsableName(std::string& complaint) const;
  bool Save(std::string& complaint) const;
  std::string RemarksOnSaved(const OptionForm& form) const;
  void UpdateEnabling();

  FormatOptionFiles files_;
  Edits edits_;
  Edits lastStep_;  // as they were at its end
  History undo_, redo_;
  TypedInto typedInto_ = TypedInto::Nothing;
};

}  // namespace qv
