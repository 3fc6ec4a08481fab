#include "platform/xml/XmlTree.h"

#include "platform/windows/Com.h"

#include <msxml2.h>

#include <array>
#include <stdexcept>

namespace qv {
namespace {

using Document = ComPtr<IXMLDOMDocument>;
using Node = ComPtr<IXMLDOMNode>;
using Stream = ComPtr<IStream>;

// The component and not the document is to blame.
void Require(HRESULT result) {
  if (SUCCEEDED(result)) return;
  throw std::runtime_error("the XML component is missing or failed: " +
                           SystemReason(static_cast<unsigned long>(result)));
}

// What a document type declares is never looked at; the class itself refuses such documents.
Document NewDocument() {
  CLSID id{};
  Document document;
  Require(CLSIDFromProgID(L"Msxml2.DOMDocument.6.0", &id));
  Require(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IXMLDOMDocument,
                           reinterpret_cast<void**>(document.ReleaseAndGetAddressOf())));
  document->put_async(VARIANT_FALSE);
  document->put_validateOnParse(VARIANT_FALSE);
  document->put_resolveExternals(VARIANT_FALSE);
  return document;
}

Stream NewStream() {
  Stream stream;
  Require(CreateStreamOnHGlobal(nullptr, TRUE, stream.ReleaseAndGetAddressOf()));
  return stream;
}

void Rewind(const Stream& stream) { Require(stream->Seek({}, STREAM_SEEK_SET, nullptr)); }

std::string NameOf(const Node& node) {
  Bstr name;
  Require(node->get_nodeName(name.Receive()));
  return Narrow(name.View());
}

void ReadAttributes(const Node& from, XmlNode& to) {
  ComPtr<IXMLDOMNamedNodeMap> attributes;
  Require(from->get_attributes(attributes.ReleaseAndGetAddressOf()));
  if (!attributes) return;
  for (;;) {
    Node attribute;
    Require(attributes->nextNode(attribute.ReleaseAndGetAddressOf()));
    if (!attribute) return;
    Variant value;
    Require(attribute->get_nodeValue(value.Receive()));
    to.attributes.emplace_back(NameOf(attribute), value.Text());
  }
}

// A document that the parser takes and we do not.
struct Refused {
  const char* why;
};

XmlNode ReadNode(const Node& from, int depth) {
  if (depth > kMaxXmlDepth) throw Refused{"elements are nested too deep"};
  XmlNode to{NameOf(from), {}, {}};
  ReadAttributes(from, to);
  Node child;
  for (Require(from->get_firstChild(child.ReleaseAndGetAddressOf())); child;) {
    to.children.push_back(ReadNode(child, depth + 1));
    Node next;
    Require(child->get_nextSibling(next.ReleaseAndGetAddressOf()));
    child = std::move(next);
  }
  return to;
}

// From bytes, so that the parser finds out their encoding; a document that is given a path takes it for an
// address, in which "%20" and "#" mean something else.
bool Load(const Document& document, std::string_view bytes) {
  const Stream stream = NewStream();
  ULONG written = 0;
  Require(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written));
  Rewind(stream);
  Variant source;
  source.SetObject(stream);
  VARIANT_BOOL loaded = VARIANT_FALSE;
  return document->load(source.Get(), &loaded) == S_OK && loaded == VARIANT_TRUE;
}

bool HasDocumentType(const Document& document) {
  ComPtr<IXMLDOMDocumentType> type;
  return document->get_doctype(type.ReleaseAndGetAddressOf()) == S_OK && type;
}

XmlError ErrorOf(const Document& document) {
  XmlError error{XmlProblem::Unreadable, 0, 0, "it is not well formed"};
  ComPtr<IXMLDOMParseError> told;
  if (FAILED(document->get_parseError(told.ReleaseAndGetAddressOf()))) return error;
  told->get_line(&error.line);
  told->get_linepos(&error.column);
  Bstr reason;
  told->get_reason(reason.Receive());
  std::string sentence = Narrow(reason.View());
  sentence.erase(sentence.find_last_not_of(" .\r\n") + 1);
  if (!sentence.empty()) error.reason = sentence;
  return error;
}

template <class Parent>
void AppendElement(const Document& document, const Parent& parent, const XmlNode& from) {
  ComPtr<IXMLDOMElement> element;
  Node appended;
  Require(document->createElement(Bstr(from.name).Get(), element.ReleaseAndGetAddressOf()));
  Require(parent->appendChild(element.Get(), appended.ReleaseAndGetAddressOf()));
  for (const auto& [name, value] : from.attributes) {
    Variant text;
    text.SetText(Widen(value));
    Require(element->setAttribute(Bstr(name).Get(), text.Get()));
  }
  for (const XmlNode& child : from.children) AppendElement(document, element, child);
}

Document DocumentOf(const XmlNode& root) {
  const Document document = NewDocument();
  ComPtr<IXMLDOMProcessingInstruction> declaration;
  Node appended;
  Require(document->createProcessingInstruction(Bstr(L"xml").Get(),
                                                Bstr(L"version=\"1.0\" encoding=\"UTF-8\"").Get(),
                                                declaration.ReleaseAndGetAddressOf()));
  Require(document->appendChild(declaration.Get(), appended.ReleaseAndGetAddressOf()));
  AppendElement(document, document, root);
  return document;
}

std::string BytesOf(const Document& document) {
  const Stream stream = NewStream();
  Variant target;
  target.SetObject(stream);
  Require(document->save(target.Get()));
  Rewind(stream);
  std::string bytes;
  std::array<char, 16384> buffer;
  ULONG count = 0;
  while (SUCCEEDED(stream->Read(buffer.data(), static_cast<ULONG>(buffer.size()), &count)) && count > 0)
    bytes.append(buffer.data(), count);
  return bytes;
}

}  // namespace

std::optional<XmlNode> ParseXml(std::string_view bytes, XmlError& error) {
  const ComScope scope;
  try {
    const Document document = NewDocument();
    if (!Load(document, bytes)) {
      error = ErrorOf(document);
      return std::nullopt;
    }
    if (HasDocumentType(document)) throw Refused{"a document type declaration is not allowed"};
    ComPtr<IXMLDOMElement> element;
    Require(document->get_documentElement(element.ReleaseAndGetAddressOf()));
    return ReadNode(element, 1);
  } catch (const Refused& refused) {
    error = {XmlProblem::Unreadable, 0, 0, refused.why};
  } catch (const std::runtime_error& failure) {
    error = {XmlProblem::NoComponent, 0, 0, failure.what()};
  }
  return std::nullopt;
}

std::optional<std::string> WriteXml(const XmlNode& root, std::string& reason) {
  try {
    return BytesOf(DocumentOf(root));
  } catch (const std::runtime_error& failure) {
    reason = failure.what();
    return std::nullopt;
  }
}

}  // namespace qv
