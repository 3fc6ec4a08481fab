#include "dialogs/HeaderNames.h"

#include "dialogs/ColumnLists.h"

#include <algorithm>
#include <iterator>

namespace qv {

void HeaderNames::Set(std::vector<std::string>& names) {
  names_ = std::move(names);
  names = {};
}

std::vector<std::string> HeaderNames::Shown() const {
  std::vector<std::string> shown;
  std::copy_if(names_.begin(), names_.end(), std::back_inserter(shown), IsShownName);
  return shown;
}

}  // namespace qv
