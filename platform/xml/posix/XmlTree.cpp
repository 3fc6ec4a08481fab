#include "platform/xml/XmlTree.h"

#include "platform/CodePage.h"
#include "text/Ascii.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace qv {
namespace {

struct Mark {
  std::string_view bytes;
  const char* encoding;
  std::size_t length;  // how much of it is no part of the document
};

// Longer marks first. The last four are no marks but the first characters of a document without one.
constexpr Mark kMarks[] = {
    {{"\0\0\xFE\xFF", 4}, "UTF-32BE", 4}, {{"\xFF\xFE\0\0", 4}, "UTF-32LE", 4},
    {"\xEF\xBB\xBF", "UTF-8", 3},         {"\xFE\xFF", "UTF-16BE", 2},
    {"\xFF\xFE", "UTF-16LE", 2},          {{"\0\0\0<", 4}, "UTF-32BE", 0},
    {{"<\0\0\0", 4}, "UTF-32LE", 0},      {{"\0<", 2}, "UTF-16BE", 0},
    {{"<\0", 2}, "UTF-16LE", 0},
};

const Mark* FindMark(std::string_view bytes) {
  for (const Mark& mark : kMarks) {
    if (bytes.starts_with(mark.bytes)) return &mark;
  }
  return nullptr;
}

// The encoding that the declaration of a document in some superset of ASCII names. A declaration that is none
// is left to the parser.
std::string DeclaredEncoding(std::string_view bytes) {
  static constexpr std::string_view kKey = "encoding";
  const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
  const std::size_t key = declaration.starts_with("<?xml") ? declaration.find(kKey) : std::string_view::npos;
  if (key == std::string_view::npos) return "UTF-8";
  const std::size_t open = declaration.find_first_of("\"'", key + kKey.size());
  if (open == std::string_view::npos) return "UTF-8";
  const std::size_t close = declaration.find(declaration[open], open + 1);
  const std::string_view name = declaration.substr(open + 1, close - open - 1);
  // The platform's decoder takes words after a slash, and no name at all for the locale's.
  return name.empty() || name.find('/') != std::string_view::npos ? "UTF-8" : std::string(name);
}

struct DecodedXml {
  std::string encoding;
  DecodedText text;  // without a byte-order mark
};

// The bytes of a document as UTF-8. The encoding is told by the byte-order mark, else by the XML declaration,
// else it is UTF-8.
DecodedXml DecodeXml(std::string_view bytes) {
  const Mark* const mark = FindMark(bytes);
  std::string encoding = mark != nullptr ? mark->encoding : DeclaredEncoding(bytes);
  if (mark != nullptr) bytes.remove_prefix(mark->length);
  DecodedText text = DecodeStrictly(bytes, encoding);
  return {std::move(encoding), std::move(text)};
}

// Between the parts of a name: no XML name and no address of a namespace holds it.
constexpr char kSeparator = '\n';

// "address, name, prefix" as "prefix:name"; a name without a namespace stands alone.
std::string QualifiedName(std::string_view parts) {
  const std::size_t first = parts.find(kSeparator);
  if (first == std::string_view::npos) return std::string(parts);
  const std::string_view rest = parts.substr(first + 1);
  const std::size_t second = rest.find(kSeparator);
  if (second == std::string_view::npos) return std::string(rest);
  return std::string(rest.substr(second + 1)).append(":").append(rest.substr(0, second));
}

/// Builds the tree while the parser walks the text. Open elements stand in a list of their own.
class TreeBuilder {
 public:
  explicit TreeBuilder(std::string_view text) : text_(text) {
    XML_SetReturnNSTriplet(parser_.get(), 1);
    XML_SetUserData(parser_.get(), this);
    XML_SetXmlDeclHandler(parser_.get(), Call<&TreeBuilder::Declaration>);
    XML_SetStartDoctypeDeclHandler(parser_.get(), Call<&TreeBuilder::DocumentType>);
    XML_SetElementHandler(parser_.get(), Call<&TreeBuilder::StartElement>, Call<&TreeBuilder::EndElement>);
    XML_SetCharacterDataHandler(parser_.get(), Call<&TreeBuilder::Text>);
    XML_SetCommentHandler(parser_.get(), Call<&TreeBuilder::Comment>);
    XML_SetProcessingInstructionHandler(parser_.get(), Call<&TreeBuilder::Instruction>);
    XML_SetCdataSectionHandler(parser_.get(), Call<&TreeBuilder::StartSection>,
                               Call<&TreeBuilder::EndSection>);
  }

  std::optional<XmlNode> Run(XmlError& error) {
    // The parser takes its lengths as int.
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    XML_Status status = XML_STATUS_OK;
    for (std::size_t at = 0; status == XML_STATUS_OK && at <= text_.size(); at += kPiece) {
      const std::string_view piece = text_.substr(at, kPiece);
      status =
          XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), at + kPiece > text_.size());
    }
    if (status == XML_STATUS_OK) return std::move(root_);
    error.problem = XmlProblem::Unreadable;
    error.line = static_cast<long>(XML_GetCurrentLineNumber(parser_.get()));
    error.column = static_cast<long>(XML_GetCurrentColumnNumber(parser_.get())) + 1;
    error.reason = refusal_ != nullptr ? refusal_ : XML_ErrorString(XML_GetErrorCode(parser_.get()));
    return std::nullopt;
  }

  /// Where the parser is, in bytes of the text.
  std::size_t ByteIndex() const { return static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get())); }

 private:
  struct OpenElement {
    XmlNode node;
    bool keepsSpace;
  };

  // The parser's handler that calls a member function.
  template <auto Member>
  struct Handler;
  template <class... Arguments, void (TreeBuilder::*Member)(Arguments...)>
  struct Handler<Member> {
    static void Run(void* builder, Arguments... arguments) {
      (static_cast<TreeBuilder*>(builder)->*Member)(arguments...);
    }
  };
  template <auto Member>
  static constexpr auto Call = &Handler<Member>::Run;

  void Refuse(const char* why) {
    refusal_ = why;
    XML_StopParser(parser_.get(), XML_FALSE);
  }

  void Declaration(const char* version, const char*, int) {
    if (version != nullptr && std::string_view(version) != "1.0") Refuse("only version 1.0 of XML is read");
  }

  void DocumentType(const char*, const char*, const char*, int) {
    Refuse("a document type declaration is not allowed");
  }

  void StartElement(const char* name, const char** attributes) {
    EndText();
    if (open_.size() >= kMaxXmlDepth) return Refuse("elements are nested too deep");
    OpenElement element{{QualifiedName(name), {}, {}}, !open_.empty() && open_.back().keepsSpace};
    for (; *attributes != nullptr; attributes += 2)
      element.node.attributes.emplace_back(QualifiedName(attributes[0]), attributes[1]);
    const std::string space = element.node.Attribute("xml:space");
    if (!space.empty()) element.keepsSpace = space == "preserve";
    open_.push_back(std::move(element));
  }

  void EndElement(const char*) {
    EndText();
    XmlNode node = std::move(open_.back().node);
    open_.pop_back();
    if (open_.empty())
      root_ = std::move(node);
    else
      open_.back().node.children.push_back(std::move(node));
  }

  // White space that is written as a reference is meant.
  void Text(const char* characters, int count) {
    if (inSection_) return;
    const bool isReference = text_[ByteIndex()] == '&';
    const bool isSpace = !isReference && std::all_of(characters, characters + count, IsSpace);
    hasText_ = hasText_ || !isSpace || open_.back().keepsSpace;
  }

  void Comment(const char*) { Add("#comment"); }
  void Instruction(const char* target, const char*) { Add(target); }

  void StartSection() {
    Add("#cdata-section");
    inSection_ = true;
  }
  void EndSection() { inSection_ = false; }

  void EndText() {
    if (std::exchange(hasText_, false)) open_.back().node.children.push_back({"#text", {}, {}});
  }

  void Add(const char* name) {
    if (open_.empty()) return;
    EndText();
    open_.back().node.children.push_back({name, {}, {}});
  }

  using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)>;

  std::string_view text_;
  Parser parser_{XML_ParserCreateNS("UTF-8", kSeparator), XML_ParserFree};
  std::vector<OpenElement> open_;
  std::optional<XmlNode> root_;
  bool hasText_ = false;  // since the last node of the open element
  bool inSection_ = false;
  const char* refusal_ = nullptr;
};

}  // namespace

std::optional<XmlNode> ParseXml(std::string_view bytes, XmlError& error) {
  auto [encoding, text] = DecodeXml(bytes);
  if (!text.knownEncoding) {
    error = {XmlProblem::Unreadable, 1, 1, "the encoding '" + encoding + "' is not known"};
    return std::nullopt;
  }
  if (text.whole) return TreeBuilder(text.utf8).Run(error);
  // The parser tells where a byte stands that is no text.
  const std::size_t end = text.utf8.size();
  TreeBuilder builder(text.utf8 += '\xFF');
  builder.Run(error);
  if (builder.ByteIndex() == end) error.reason = "a byte that is not " + encoding;
  return std::nullopt;
}

std::optional<std::string> WriteXml(const XmlNode& root, std::string&) { return XmlText(root); }

}  // namespace qv
