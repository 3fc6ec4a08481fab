#include "platform/XmlDocument.h"

#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlEncoding.h"
#include "platform/XmlWellFormed.h"
#include "platform/windows/Com.h"

#include <msxml2.h>

#include <array>
#include <stdexcept>

namespace qv {
namespace {

constexpr const wchar_t* kDocumentClass = L"Msxml2.DOMDocument.6.0";

using Document = ComPtr<IXMLDOMDocument>;
using Node = ComPtr<IXMLDOMNode>;
using Stream = ComPtr<IStream>;

// For reading, where a caller tells a document that is broken from one that says nothing.
void Require(HRESULT result) {
  if (FAILED(result)) throw std::runtime_error("the XML document cannot be read");
}

// Text that a reader gets back as it is here.
bool IsPlainText(const std::string& text) {
  const std::string utf8 = ToUtf8(text);
  return IsXmlText(utf8) && FromUtf8(utf8) == text;
}

// A prefix would need a namespace, and nobody here declares one.
bool IsPlainName(const std::string& name) {
  return name.find(':') == std::string::npos && IsXmlName(ToUtf8(name)) && IsPlainText(name);
}

class MsxmlNode final : public XmlNode {
 public:
  explicit MsxmlNode(Node node) : node_(std::move(node)) {}

  std::string Name() const override {
    Bstr name;
    Require(node_->get_nodeName(name.Receive()));
    return Narrow(name.View());
  }

  std::string Attribute(const char* name) const override {
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    Require(node_->get_attributes(attributes.Receive()));
    if (!attributes) return {};
    Node attribute;
    Require(attributes->getNamedItem(Bstr(std::string_view(name)).Get(), attribute.Receive()));
    if (!attribute) return {};
    Variant value;
    Require(attribute->get_nodeValue(value.Receive()));
    return value.Text();
  }

  std::vector<std::unique_ptr<XmlNode>> Children() const override {
    std::vector<std::unique_ptr<XmlNode>> children;
    Node child;
    Require(node_->get_firstChild(child.Receive()));
    while (child) {
      Node next;
      Require(child->get_nextSibling(next.Receive()));
      children.push_back(std::make_unique<MsxmlNode>(std::move(child)));
      child = std::move(next);
    }
    return children;
  }

  std::unique_ptr<XmlNode> AppendElement(const std::string& name) override {
    ComPtr<IXMLDOMDocument> document;
    node_->get_ownerDocument(document.Receive());
    return document ? AppendNewElement(document.Get(), node_.Get(), name) : nullptr;
  }

  bool SetAttribute(const char* name, const std::string& value) override {
    const auto element = node_.As<IXMLDOMElement>(IID_IXMLDOMElement);
    if (!element || !IsPlainName(name) || !IsPlainText(value)) return false;
    Variant text;
    text.SetText(Widen(value));
    return SUCCEEDED(element->setAttribute(Bstr(std::string_view(name)).Get(), text.Get()));
  }

  static std::unique_ptr<XmlNode> AppendNewElement(IXMLDOMDocument* document, IXMLDOMNode* parent,
                                                   const std::string& name) {
    ComPtr<IXMLDOMElement> element;
    Node appended;
    if (!IsPlainName(name) || FAILED(document->createElement(Bstr(name).Get(), element.Receive())) ||
        FAILED(parent->appendChild(element.Get(), appended.Receive()))) {
      return nullptr;
    }
    return std::make_unique<MsxmlNode>(std::move(appended));
  }

 private:
  Node node_;
};

Stream NewStream() {
  Stream stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
  return stream;
}

bool Rewind(const Stream& stream) { return SUCCEEDED(stream->Seek({}, STREAM_SEEK_SET, nullptr)); }

bool Write(const Stream& stream, std::string_view bytes) {
  ULONG written = 0;
  return SUCCEEDED(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written)) &&
         written == bytes.size();
}

template <class Take>
bool ForEachPiece(const Stream& stream, Take take) {
  std::array<char, 16384> buffer;
  ULONG count = 0;
  while (SUCCEEDED(stream->Read(buffer.data(), static_cast<ULONG>(buffer.size()), &count)) && count > 0) {
    if (!take(std::string_view(buffer.data(), count))) return false;
  }
  return true;
}

// The file goes through the library's own file system, because a document takes a path for an address, in
// which "%20" and "#" mean something else.
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

// The first fault of a document, with its place and a sentence that are the same on every platform. Found
// before the parser sees the document, so that it never meets a reference to an entity that a document type
// declares.
bool FindFault(std::string_view bytes, XmlError& error) {
  const std::optional<std::string> text = DecodeXml(bytes, error);
  if (!text) return true;
  const XmlFault fault = FindXmlFault(*text);
  if (fault.reason.empty()) return false;
  LocateXmlError(*text, fault.offset, error);
  error.reason = fault.reason;
  return true;
}

class MsxmlDocument final : public XmlDocument {
 public:
  explicit MsxmlDocument(Document document) : document_(std::move(document)) {}

  bool Load(const char* path, XmlError& error) override {
    error = {};
    std::string bytes;
    if (ReadBytes(path, bytes, error) && !FindFault(bytes, error)) {
      if (Parse(bytes) && !HasDocumentType()) return true;
      TakeError(error);
    }
    Parse({});  // nothing stays of what could not be loaded
    return false;
  }

  std::unique_ptr<XmlNode> Root() const override {
    ComPtr<IXMLDOMElement> root;
    document_->get_documentElement(root.Receive());
    return root ? std::make_unique<MsxmlNode>(root.As<IXMLDOMNode>(IID_IXMLDOMNode)) : nullptr;
  }

  bool AppendProcessingInstruction(const std::string& target, const std::string& data) override {
    if (!IsPlainName(target) || !IsPlainText(data) || data.find("?>") != std::string::npos) return false;
    ComPtr<IXMLDOMProcessingInstruction> instruction;
    Node appended;
    return SUCCEEDED(document_->createProcessingInstruction(Bstr(target).Get(), Bstr(data).Get(),
                                                            instruction.Receive())) &&
           SUCCEEDED(document_->appendChild(instruction.Get(), appended.Receive()));
  }

  std::unique_ptr<XmlNode> CreateRoot(const std::string& name) override {
    if (Root() != nullptr) return nullptr;
    return MsxmlNode::AppendNewElement(document_.Get(), document_.Get(), name);
  }

  bool Save(const char* path, std::string& reason) override {
    const Stream stream = NewStream();
    Variant target;
    if (stream) target.SetObject(stream);
    const HRESULT saved = stream ? document_->save(target.Get()) : E_OUTOFMEMORY;
    if (FAILED(saved) || !Rewind(stream)) {
      reason = SystemReason(static_cast<unsigned long>(saved));
      return false;
    }
    const std::unique_ptr<OpenFile> file = Files().Open(path, OpenMode::Write, reason);
    if (file == nullptr) return false;
    if (ForEachPiece(stream, [&](std::string_view piece) { return file->Write(piece); }) && file->Close()) {
      return true;
    }
    reason = file->Reason();
    return false;
  }

 private:
  bool Parse(std::string_view bytes) {
    const Stream stream = NewStream();
    if (!stream || !Write(stream, bytes) || !Rewind(stream)) return false;
    Variant source;
    source.SetObject(stream);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    return document_->load(source.Get(), &loaded) == S_OK && loaded == VARIANT_TRUE;
  }

  // Refused everywhere. Documents of this class do so by default, but not in every version.
  bool HasDocumentType() const {
    ComPtr<IXMLDOMDocumentType> type;
    return document_->get_doctype(type.Receive()) == S_OK && type;
  }

  void TakeError(XmlError& error) const {
    ComPtr<IXMLDOMParseError> told;
    document_->get_parseError(told.Receive());
    Bstr reason;
    if (told) {
      told->get_reason(reason.Receive());
      told->get_line(&error.line);
      told->get_linepos(&error.column);
    }
    error.reason = Narrow(reason.View());
    while (!error.reason.empty() &&
           std::string_view(" .\r\n").find(error.reason.back()) != std::string::npos) {
      error.reason.pop_back();
    }
    if (error.reason.empty()) error.reason = "a document type declaration is not allowed";
  }

  Document document_;
};

}  // namespace

std::unique_ptr<XmlDocument> XmlDocument::Create() {
  CLSID id{};
  Document document;
  if (FAILED(CLSIDFromProgID(kDocumentClass, &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IXMLDOMDocument,
                              reinterpret_cast<void**>(document.Receive())))) {
    return nullptr;
  }
  // What a document type declares is never looked at; the class itself refuses such documents.
  document->put_async(VARIANT_FALSE);
  document->put_validateOnParse(VARIANT_FALSE);
  document->put_resolveExternals(VARIANT_FALSE);
  return std::make_unique<MsxmlDocument>(std::move(document));
}

}  // namespace qv
