#pragma once

#include "dialogs/ColumnLists.h"
#include "dialogs/DefaultChoice.h"
#include "dialogs/OptionControls.h"
#include "format/FormatConfiguration.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qv {

/// A format's name as a host reads it back must fit 100 characters with its terminator.
inline constexpr std::size_t kLongestFormatName = 99;

struct FormatOptionFiles {
  std::string configuration;  ///< the format file
  std::string settings;       ///< Setting.ini
};

/// The rules of the format option dialog, without any window: the formats of one format file, the one that is
/// shown and edited, and what becomes of them. A view writes the controls' values into Controls() before a
/// command and shows everything again after it. Nothing reaches a file before Ok().
class FormatOptionModel {
 public:
  explicit FormatOptionModel(FormatOptionFiles files);

  /// Loads the format file and shows the format `formatName`, or the file's current one when it is empty. A
  /// name that no format bears is shown as a new format. Returns what the user should be told, else empty: a
  /// file that cannot be understood will be replaced as a whole by OK.
  std::string Open(const std::string& formatName);

  const std::vector<OptionForm>& Formats() const { return configuration_.Formats->Formats; }
  /// The rank of the shown format; Formats().size() when the file does not hold it.
  std::size_t ShownRank() const;

  OptionControls& Controls() { return controls_; }
  const OptionControls& Controls() const { return controls_; }
  const ColumnLists& Columns() const { return columns_; }
  const OptionEnabling& Enabling() const { return enabling_; }

  /// Shows the format at the rank; what was edited before and not confirmed is forgotten.
  void ShowFormat(std::size_t rank);
  /// Shows a format that need not be one of the file's.
  void ShowForm(const OptionForm& form);
  void SetAsDefault(bool isTicked);
  void TickOther(bool isTicked);
  void SelectPlanItems(Selection ranks) { columns_.SelectPlanItems(std::move(ranks)); }
  void SelectSequence(Selection ranks);
  void Add();
  void Delete();
  void MoveUp();
  void MoveDown();

  /// The format that the controls and lists describe, under the combo box's name.
  OptionForm Form() const;

  /// Puts Form() among the formats in memory: in the place of the shown format, or as a new one when the
  /// combo box reads a new name. False with a sentence for the user when the name cannot be used.
  bool StoreForm(std::string& complaint);

  /// Stores the form, makes it the current format, writes the format file and then the default format's name.
  /// False with a sentence for the user when that cannot be; both files then stand as they were.
  bool Ok(std::string& complaint);

 private:
  bool CheckName(std::string& complaint) const;
  bool Save(const FormatConfiguration& configuration, std::string& complaint) const;
  void SuitSequenceSelection();

  FormatOptionFiles files_;
  FormatConfiguration configuration_;
  OptionForm shown_;  // as it was before any control changed
  OptionControls controls_;
  ColumnLists columns_;
  OptionEnabling enabling_;
  DefaultChoice default_;
};

}  // namespace qv
