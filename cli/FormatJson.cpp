#include "cli/FormatJson.h"

#include "platform/CodePage.h"

#include <nlohmann/json.hpp>

namespace qv {
namespace {

using Json = nlohmann::ordered_json;

Json AsJson(const OptionForm& form) {
  Json items = Json::array();
  for (const FormatItem& item : form.Items)
    items.push_back({{"Name", ToUtf8(item.Name)}, {"Order", ToUtf8(item.Order)}});
  return {{"Name", ToUtf8(form.Name)},
          {"StartLine", form.StartLine},
          {"Delimiters", ToUtf8(form.Delimiters)},
          {"OtherDelimiters", ToUtf8(form.OtherDelimiters)},
          {"Qualifier", form.Qualifier},
          {"TreatAsOne", form.TreatAsOne},
          {"PartKey", ToUtf8(form.PartKey)},
          {"Items", std::move(items)}};
}

}  // namespace

std::string FormatJson(const OptionForm& form) { return AsJson(form).dump() + "\n"; }

std::string FormatListJson(const FormatList& list) {
  Json formats = Json::array();
  for (const OptionForm& form : list.Formats) formats.push_back(AsJson(form));
  return Json{{"Current", ToUtf8(list.CurrentFormat)}, {"Formats", std::move(formats)}}.dump() + "\n";
}

}  // namespace qv
