#pragma once

#include "format/Delimiters.h"

#include <array>
#include <cstddef>
#include <string>

namespace qv {

enum class PartNameMode { NameOnly, NameWithFullPath };

/// The range of the start line's up-down control. A line typed into the edit, or read from a file, may lie
/// outside it.
inline constexpr int kFirstStartLine = 1;
inline constexpr int kLastStartLine = 100;

inline constexpr int kQualifierCount = 3;

/// The values of the dialog's simple controls. A view moves them from and to its controls as a whole.
struct OptionControls {
  std::string FormatName;  ///< the combo box's text
  bool SetAsDefault = false;
  int StartLine = 2;
  int Qualifier = 0;  ///< index of the list's item; another number (a file's own) shows none
  std::array<bool, kDelimiterNames.size()> Delimiters = {true, false, true, false, false};  ///< by Delimiter
  std::string OtherDelimiters;
  PartNameMode PartName = PartNameMode::NameOnly;
  bool TreatAsOne = false;

  bool& Ticked(Delimiter box) { return Delimiters[static_cast<std::size_t>(box)]; }
  bool Ticked(Delimiter box) const { return Delimiters[static_cast<std::size_t>(box)]; }

  bool operator==(const OptionControls&) const = default;
};

/// Which controls can be used. Controls that are not named here always can.
struct OptionEnabling {
  bool OtherDelimiters = false;
  bool Sequence = false;
  bool Delete = false;
  bool Up = false;
  bool Down = false;
};

}  // namespace qv
