#include "platform/XmlDocument.h"

#include "platform/FileSystem.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlEncoding.h"
#include "platform/XmlWellFormed.h"

#include <array>
#include <pugixml.hpp>

namespace qv {
namespace {

class PugiNode final : public XmlNode {
 public:
  explicit PugiNode(pugi::xml_node node) : node_(node) {}

  std::string Name() const override {
    switch (node_.type()) {
      case pugi::node_pcdata:
        return "#text";
      case pugi::node_cdata:
        return "#cdata-section";
      case pugi::node_comment:
        return "#comment";
      default:
        return node_.name();
    }
  }

  std::string Attribute(const char* name) const override { return node_.attribute(name).value(); }

  std::vector<std::unique_ptr<XmlNode>> Children() const override {
    std::vector<std::unique_ptr<XmlNode>> children;
    for (const pugi::xml_node child : node_.children()) children.push_back(std::make_unique<PugiNode>(child));
    return children;
  }

  std::unique_ptr<XmlNode> AppendElement(const std::string& name) override {
    // A prefix would need a namespace, and nobody here declares one.
    if (!IsXmlName(name) || name.find(':') != std::string::npos) return nullptr;
    return std::make_unique<PugiNode>(node_.append_child(name.c_str()));
  }

  bool SetAttribute(const char* name, const std::string& value) override {
    if (!IsXmlName(name) || !IsXmlText(value)) return false;
    pugi::xml_attribute attribute = node_.attribute(name);
    if (!attribute) attribute = node_.append_attribute(name);
    return attribute.set_value(value.c_str());
  }

 private:
  pugi::xml_node node_;
};

struct StringWriter final : pugi::xml_writer {
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
  std::string text;
};

bool ReadBytes(const char* path, std::string& bytes, XmlError& error) {
  const std::unique_ptr<OpenFile> file = Files().Open(path, OpenMode::Read, error.reason);
  if (file == nullptr) {
    error.missing = !Files().Exists(path);
    return false;
  }
  std::array<char, 16384> buffer;
  std::ptrdiff_t count = 0;
  while ((count = file->Read(buffer.data(), buffer.size())) > 0) {
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
  if (count < 0) error.reason = file->Reason();
  return count == 0;
}

class PugiDocument final : public XmlDocument {
 public:
  bool Load(const char* path, XmlError& error) override {
    document_.reset();
    error = {};
    std::string bytes;
    if (!ReadBytes(path, bytes, error)) return false;
    const std::optional<std::string> text = DecodeXml(bytes, error);
    return text.has_value() && Parse(*text, error);
  }

  std::unique_ptr<XmlNode> Root() const override {
    const pugi::xml_node root = document_.document_element();
    return root ? std::make_unique<PugiNode>(root) : nullptr;
  }

  bool AppendProcessingInstruction(const std::string& target, const std::string& data) override {
    if (!IsXmlName(target) || !IsXmlText(data) || data.find("?>") != std::string::npos) return false;
    pugi::xml_node instruction = document_.append_child(pugi::node_pi);
    return instruction.set_name(target.c_str()) && instruction.set_value(data.c_str());
  }

  std::unique_ptr<XmlNode> CreateRoot(const std::string& name) override {
    if (document_.document_element()) return nullptr;
    PugiNode document(document_);
    return document.AppendElement(name);
  }

  bool Save(const char* path, std::string& reason) override {
    StringWriter writer;
    document_.save(writer, "  ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
    const std::unique_ptr<OpenFile> file = Files().Open(path, OpenMode::Write, reason);
    if (file == nullptr) return false;
    if (file->Write(writer.text) && file->Close()) return true;
    reason = file->Reason();
    return false;
  }

 private:
  // The parser takes much that is not well formed, so the text is checked before it.
  bool Parse(const std::string& text, XmlError& error) {
    const XmlFault fault = FindXmlFault(text);
    if (!fault.reason.empty()) return Fail(text, fault.offset, fault.reason, error);
    const pugi::xml_parse_result result = document_.load_buffer(
        text.data(), text.size(), pugi::parse_default | pugi::parse_pi | pugi::parse_comments,
        pugi::encoding_utf8);
    if (result) return true;
    document_.reset();
    return Fail(text, static_cast<std::size_t>(result.offset), result.description(), error);
  }

  static bool Fail(const std::string& text, std::size_t offset, const std::string& reason, XmlError& error) {
    LocateXmlError(text, offset, error);
    error.reason = reason;
    return false;
  }

  pugi::xml_document document_;
};

}  // namespace

std::unique_ptr<XmlDocument> XmlDocument::Create() { return std::make_unique<PugiDocument>(); }

}  // namespace qv
