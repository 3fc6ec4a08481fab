#include "format/FormatWriter.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace {

using Node = std::unique_ptr<qv::XmlNode>;

void Require(bool succeeded, const char* message) {
  if (!succeeded) throw std::runtime_error(message);
}

void WriteItem(const FormatItem& item, qv::XmlNode& parent) {
  const Node node = parent.AppendElement(item.Name);
  Require(node != nullptr && node->SetAttribute("Order", item.Order), "FormatItem node error");
}

void WriteFormat(const OptionForm& form, qv::XmlNode& parent) {
  const Node node = parent.AppendElement("OptionForm");
  Require(node != nullptr, "can not create OptionForm node");
  const std::pair<const char*, std::string> attributes[] = {
      {"Name", form.Name},
      {"Line", std::to_string(form.StartLine)},
      {"Delimiters", form.Delimiters},
      {"Other", form.OtherDelimiters},
      {"Qualifier", std::to_string(form.Qualifier)},
      {"TreatAsOne", form.TreatAsOne ? "1" : "0"},
      {"Part", form.PartKey},
  };
  for (const auto& [name, value] : attributes) {
    Require(node->SetAttribute(name, value), "can not create OptionForm node");
  }
  for (const FormatItem& item : form.Items) WriteItem(item, *node);
}

}  // namespace

void WriteFormats(const FormatList& list, qv::XmlDocument& document) {
  document.AppendProcessingInstruction("xml", "version=\"1.0\" encoding=\"UTF-8\"");
  const Node root = document.CreateRoot("CSVOptionSetting");
  Require(root != nullptr && root->SetAttribute("Current", list.CurrentFormat), "can not create root node");
  for (const OptionForm& form : list.Formats) WriteFormat(form, *root);
}
