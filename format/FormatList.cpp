#include "format/FormatList.h"

#include "format/DefaultHeaderKeywords.h"
#include "format/FormatColumns.h"

#include <algorithm>
#include <unordered_set>

namespace {

auto ByName(std::string_view name) {
  return [name](const OptionForm& form) { return form.Name == name; };
}

}  // namespace

bool FindFormat(const FormatList& list, std::string_view name, OptionForm& record) {
  const auto found = std::find_if(list.Formats.begin(), list.Formats.end(), ByName(name));
  if (found == list.Formats.end()) return false;
  record = *found;
  return true;
}

bool AddFormat(FormatList& list, const OptionForm* record) {
  if (record == nullptr) return false;
  const auto found = std::find_if(list.Formats.begin(), list.Formats.end(), ByName(record->Name));
  if (found == list.Formats.end()) {
    list.Formats.push_back(*record);
  } else {
    *found = *record;
  }
  return true;
}

void CompleteWithKeywords(OptionForm& form) {
  std::unordered_set<std::string> present;
  for (const FormatItem& item : form.Items) present.insert(item.Name);
  for (const std::string_view keyword : DefaultHeaderKeywords) {
    const std::string name(keyword);
    if (!present.contains(name)) form.Items.push_back({name, std::string(qv::kAbsent)});
  }
}
