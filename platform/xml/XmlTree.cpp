#include "platform/xml/XmlTree.h"

#include "platform/CodePage.h"
#include "platform/FileSystem.h"

#include <algorithm>

namespace qv {
namespace {

// White space other than a blank would be read as a blank if it were not written as a reference.
constexpr std::pair<char, std::string_view> kReferences[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'"', "&quot;"}, {'\t', "&#09;"}, {'\n', "&#10;"}, {'\r', "&#13;"}};

void AppendValue(std::string& text, std::string_view value) {
  for (const char& c : value) {
    const auto found = std::ranges::find(kReferences, c, &std::pair<char, std::string_view>::first);
    text += found == std::end(kReferences) ? std::string_view(&c, 1) : found->second;
  }
}

void AppendElement(std::string& text, const XmlNode& node, const std::string& indent) {
  const std::string name = ToUtf8(node.name);
  text += indent + "<" + name;
  for (const auto& [attribute, value] : node.attributes) {
    text += " " + ToUtf8(attribute) + "=\"";
    AppendValue(text, ToUtf8(value));
    text += '"';
  }
  if (node.children.empty()) {
    text += " />\n";
    return;
  }
  text += ">\n";
  for (const XmlNode& child : node.children) AppendElement(text, child, indent + "  ");
  text += indent + "</" + name + ">\n";
}

// What reads back as it was written can be carried. A prefix would need a namespace, and nobody here declares
// one.
bool IsCarried(const XmlNode& root) {
  XmlError error;
  const std::optional<XmlNode> again = ParseXml(XmlText(root), error);
  return error.problem == XmlProblem::NoComponent || again == root;
}

bool IsCarriedName(const std::string& name) {
  return name.find(':') == std::string::npos && IsCarried({name, {}, {}});
}

std::optional<XmlRefusal> FindRefusal(const XmlNode& node, const XmlNode* parent) {
  if (!IsCarriedName(node.name)) return XmlRefusal{&node, parent, ""};
  for (const auto& attribute : node.attributes)
    if (!IsCarried({"a", {attribute}, {}})) return XmlRefusal{&node, parent, attribute.first};
  for (const XmlNode& child : node.children)
    if (auto refusal = FindRefusal(child, &node)) return refusal;
  return std::nullopt;
}

bool HasPrefix(const XmlNode& node) {
  return node.name.find(':') != std::string::npos || std::ranges::any_of(node.children, HasPrefix);
}

}  // namespace

std::string XmlNode::Attribute(std::string_view attribute) const {
  const auto found = std::ranges::find(attributes, attribute, &std::pair<std::string, std::string>::first);
  return found == attributes.end() ? std::string() : found->second;
}

std::optional<XmlNode> LoadXml(const std::string& path, XmlError& error) {
  error = {};
  if (const auto bytes = ReadFile(path, error.reason)) return ParseXml(*bytes, error);
  error.problem = Files().Exists(path) ? XmlProblem::Unreadable : XmlProblem::MissingFile;
  return std::nullopt;
}

std::optional<XmlRefusal> FindXmlRefusal(const XmlNode& root) {
  // Node by node only where something is wrong: each look is a document of its own.
  if (!HasPrefix(root) && IsCarried(root)) return std::nullopt;
  return FindRefusal(root, nullptr);
}

std::string XmlText(const XmlNode& root) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  AppendElement(text, root, "");
  return text;
}

}  // namespace qv
