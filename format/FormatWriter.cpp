#include "format/FormatWriter.h"

#include <memory>
#include <string>
#include <utility>

namespace {

using Node = std::unique_ptr<qv::XmlNode>;

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

void SetAttribute(qv::XmlNode& node, const char* name, const std::string& value, const char* message,
                  const std::string& owner) {
  if (node.SetAttribute(name, value)) return;
  throw NodeError(message,
                  owner + " has a character in " + name + " that XML cannot carry: " + Quoted(value));
}

void WriteItem(const FormatItem& item, const std::string& format, qv::XmlNode& parent) {
  constexpr const char* kMessage = "FormatItem node error";
  const std::string owner = "the item " + Quoted(item.Name) + " of the format " + Quoted(format);
  const Node node = parent.AppendElement(item.Name);
  if (node == nullptr) throw NodeError(kMessage, owner + " has a name that no XML element can bear");
  SetAttribute(*node, "Order", item.Order, kMessage, owner);
}

void WriteFormat(const OptionForm& form, qv::XmlNode& parent) {
  constexpr const char* kMessage = "can not create OptionForm node";
  const std::string owner = "the format " + Quoted(form.Name);
  const Node node = parent.AppendElement("OptionForm");
  if (node == nullptr) throw NodeError(kMessage, owner);
  const std::pair<const char*, std::string> attributes[] = {
      {"Name", form.Name},
      {"Line", std::to_string(form.StartLine)},
      {"Delimiters", form.Delimiters},
      {"Other", form.OtherDelimiters},
      {"Qualifier", std::to_string(form.Qualifier)},
      {"TreatAsOne", form.TreatAsOne ? "1" : "0"},
      {"Part", form.PartKey},
  };
  for (const auto& [name, value] : attributes) SetAttribute(*node, name, value, kMessage, owner);
  for (const FormatItem& item : form.Items) WriteItem(item, form.Name, *node);
}

}  // namespace

void WriteFormats(const FormatList& list, qv::XmlDocument& document) {
  constexpr const char* kMessage = "can not create root node";
  document.AppendProcessingInstruction("xml", "version=\"1.0\" encoding=\"UTF-8\"");
  const Node root = document.CreateRoot("CSVOptionSetting");
  if (root == nullptr) throw NodeError(kMessage, "the document takes no root");
  SetAttribute(*root, "Current", list.CurrentFormat, kMessage, "the list of formats");
  for (const OptionForm& form : list.Formats) WriteFormat(form, *root);
}
