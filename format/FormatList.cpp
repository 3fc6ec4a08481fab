#include "format/FormatList.h"

#include "format/FormatColumns.h"

#include <algorithm>
#include <unordered_set>

const std::array<std::string_view, 33> DefaultHeaderKeywords = {
    "Ignore",
    "PartName",
    "PartNumber",
    "FullPath",
    "PartQuantity",
    "DueDate",
    "MaterialType",
    "MaterialThickness",
    "PartComment",
    "Revision",
    "Machine",
    "ToolInventory",
    "MaterialGroup",
    "Customer",
    "RouterNumber",
    "WorkOrderNumber",
    "BinID",
    "EstimateTime",
    "PartPositionInGroup",
    "GroupName",
    "PreferredMaterial",
    "RectangularTrueShape",
    "StackTable",
    "RotateSpecificAngle",
    "Rotation",
    "CommonCutting",
    "C-CutPunch",
    "GrainDirection",
    "MaterialCode",
    "MaterialDescription",
    "CustomerMaterialType",
    "Coating",
    "Priority",
};

bool FindFormat(const FormatList& list, std::string_view name, OptionForm& record) {
  const auto found = std::ranges::find(list.Formats, name, &OptionForm::Name);
  if (found == list.Formats.end()) return false;
  record = *found;
  return true;
}

bool AddFormat(FormatList& list, const OptionForm* record) {
  if (record == nullptr) return false;
  const auto found = std::ranges::find(list.Formats, record->Name, &OptionForm::Name);
  if (found == list.Formats.end())
    list.Formats.push_back(*record);
  else
    *found = *record;
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
