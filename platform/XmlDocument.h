#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// One node of a document: an element, or whatever else stands between tags. Text is narrow, in the
/// platform's code page. A node must not outlive its document.
class XmlNode {
 public:
  virtual ~XmlNode() = default;

  /// The tag name of an element; "#text", "#comment", "#cdata-section" or a processing instruction's target
  /// otherwise.
  virtual std::string Name() const = 0;

  /// The value of an attribute; empty when there is none, and for nodes that carry no attributes.
  virtual std::string Attribute(const char* name) const = 0;

  /// The children in document order. Text that is white space only is no child; comments and CDATA sections
  /// are.
  virtual std::vector<std::unique_ptr<XmlNode>> Children() const = 0;

  /// Appends an element and returns it; null when `name` is no XML name.
  virtual std::unique_ptr<XmlNode> AppendElement(const std::string& name) = 0;

  virtual bool SetAttribute(const char* name, const std::string& value) = 0;
};

/// Where and why a document could not be loaded. `line` is 0 where the reason is not in the text.
struct XmlError {
  long line = 0;
  long column = 0;
  std::string reason;
  bool missing = false;  ///< the file is not there
};

class XmlDocument {
 public:
  virtual ~XmlDocument() = default;

  /// A new, empty document; null when the platform has none to give.
  static std::unique_ptr<XmlDocument> Create();

  /// Replaces the content by the file's. False when it cannot be read or is not well formed. External
  /// entities and document type declarations are never resolved.
  virtual bool Load(const char* path, XmlError& error) = 0;

  /// Null when the document has no root.
  virtual std::unique_ptr<XmlNode> Root() const = 0;

  virtual bool AppendProcessingInstruction(const std::string& target, const std::string& data) = 0;

  /// Null when no root could be made.
  virtual std::unique_ptr<XmlNode> CreateRoot(const std::string& name) = 0;

  /// Writes the document, UTF-8, to `path`. False on failure.
  virtual bool Save(const char* path, std::string& reason) = 0;
};

/// Holds what a thread needs while it loads a document: COM on Windows, nothing elsewhere. Every document of
/// the load must be gone before it is.
class XmlLoadScope {
 public:
  XmlLoadScope();
  ~XmlLoadScope();
  XmlLoadScope(const XmlLoadScope&) = delete;
  XmlLoadScope& operator=(const XmlLoadScope&) = delete;

 private:
  [[maybe_unused]] bool active_ = false;  // where there is nothing to hold
};

}  // namespace qv
