#include "dialogs/DefaultChoice.h"

#include "engines/columns/Words.h"

namespace qv {

bool DefaultChoice::IsDefault(const std::string& formatName) const {
  return !Name().empty() && EqualsIgnoringCase(Name(), formatName);
}

void DefaultChoice::Clear(const std::string& formatName) {
  chosen_.clear();
  if (EqualsIgnoringCase(remembered_, formatName)) remembered_.clear();
}

std::string DefaultChoice::Confirmed(bool isTicked, const std::string& formatName,
                                     const std::string& stored) const {
  if (isTicked) return formatName;
  const bool isStored = EqualsIgnoringCase(formatName, stored) && EqualsIgnoringCase(Name(), stored);
  return isStored ? std::string() : Name();
}

}  // namespace qv
