#pragma once

#include "format/OptionForm.h"

#include <string>
#include <vector>

namespace qv {

/// One column that a format gives to a file.
struct FormatColumn {
  int position = 0;     ///< as it is numbered in the format; numbers may be missing between columns
  std::string keyword;  ///< as it stands in a header ("C-Cut/Punch")
};

/// The format's columns as an import or export takes them: in the order of their positions, the first item
/// that claims a position having it.
std::vector<FormatColumn> ColumnsOf(const OptionForm& form);

}  // namespace qv
