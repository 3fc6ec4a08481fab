#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

/// An element of an XML document, or what else stands between tags. Text is narrow, in the platform's code
/// page. Elements are nested at most kMaxXmlDepth deep.
struct XmlNode {
  /// The tag name with its prefix; "#text", "#comment", "#cdata-section" or a processing instruction's target
  /// for what is no element. These have no attributes, and what they say is not kept.
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes;  ///< in the order of the document
  /// In the order of the document. Text that is only white space is no child, unless xml:space="preserve" is
  /// said around it.
  std::vector<XmlNode> children;

  /// The attribute's value; empty when there is none.
  std::string Attribute(std::string_view attribute) const;

  bool operator==(const XmlNode&) const = default;
};

inline constexpr int kMaxXmlDepth = 256;

enum class XmlProblem {
  None,
  MissingFile,
  Unreadable,   ///< the file cannot be read, or is no well-formed XML
  NoComponent,  ///< the platform has no XML parser to give, or it failed
};

/// Why a document could not be read. `line` and `column` count from 1 and are 0 where the reason is not in
/// the text; the sentence is the parser's own.
struct XmlError {
  XmlProblem problem = XmlProblem::None;
  long line = 0;
  long column = 0;
  std::string reason;
};

/// The root of the document in the file, which is opened once, or nothing with `error` filled. A document
/// type declaration is refused, so that nothing can be expanded or fetched. On Windows COM is initialised for
/// the call on a thread that has none.
std::optional<XmlNode> LoadXml(const std::string& path, XmlError& error);

/// The document, in UTF-8 and with an XML declaration, as a file holds it. Nothing, with `reason`, when the
/// platform cannot make it. On Windows COM must be initialised on this thread.
std::optional<std::string> WriteXml(const XmlNode& root, std::string& reason);

/// What keeps a document from being written so that it reads back as it is: a name or a value that XML or the
/// platform's code page cannot carry.
struct XmlRefusal {
  const XmlNode* node;
  const XmlNode* parent;  ///< null for the root
  std::string attribute;  ///< the one whose value it is; empty for the node's name
};

/// The first of them in the order of the document. COM as for LoadXml().
std::optional<XmlRefusal> FindXmlRefusal(const XmlNode& root);

// For the platform's part.

/// The root of the document that the bytes of a file hold, as LoadXml().
std::optional<XmlNode> ParseXml(std::string_view bytes, XmlError& error);

/// The document as an indented text of UTF-8.
std::string XmlText(const XmlNode& root);

}  // namespace qv
