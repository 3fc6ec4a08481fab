#include "platform/XmlWellFormed.h"

#include "platform/Utf8.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlEncoding.h"

#include <array>
#include <charconv>
#include <unordered_set>
#include <vector>

namespace qv {
namespace {

constexpr std::array<std::string_view, 5> kEntities = {"amp", "apos", "gt", "lt", "quot"};

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

bool EqualsIgnoringCase(std::string_view text, std::string_view lower) {
  if (text.size() != lower.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((text[i] | 0x20) != lower[i]) return false;
  }
  return true;
}

// Walks the text once. Open elements stand in a list of their own, so no depth of nesting can exhaust the
// stack.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  XmlFault Run() {
    if (CheckCharacters() && SkipXmlDeclaration() && SkipContent()) CheckEnd();
    return fault_;
  }

 private:
  std::string_view Rest() const { return text_.substr(at_); }
  bool AtEnd() const { return at_ >= text_.size(); }
  bool StartsWith(std::string_view prefix) const { return Rest().starts_with(prefix); }

  bool Fail(std::string reason) { return FailAt(at_, std::move(reason)); }
  bool FailAt(std::size_t offset, std::string reason) {
    fault_ = {offset, std::move(reason)};
    return false;
  }

  bool CheckCharacters() {
    for (std::size_t offset = 0; offset < text_.size();) {
      const Utf8Character character = DecodeUtf8(text_.substr(offset));
      if (!IsXmlCharacter(character.code)) return FailAt(offset, "a character that XML does not allow");
      offset += character.length;
    }
    return true;
  }

  bool SkipContent() {
    while (!AtEnd()) {
      if (!(text_[at_] == '<' ? SkipMarkup() : SkipText())) return false;
    }
    return true;
  }

  bool CheckEnd() {
    if (!open_.empty()) return Fail("the element " + Quoted(open_.back()) + " is not closed");
    return rootSeen_ || Fail("there is no root element");
  }

  bool SkipMarkup() {
    if (StartsWith("<!--")) return SkipComment();
    if (StartsWith("<![CDATA[")) return SkipCData();
    if (StartsWith("<!DOCTYPE")) return Fail("a document type declaration is not allowed");
    if (StartsWith("<?")) return SkipInstruction();
    if (StartsWith("</")) return SkipEndTag();
    return SkipStartTag();
  }

  bool SkipText() {
    const std::size_t end = std::min(text_.find('<', at_), text_.size());
    for (; at_ < end; ++at_) {
      if (open_.empty() && !IsXmlSpace(text_[at_])) return Fail("text outside the root element");
      if (text_[at_] == '&' && !CheckReference()) return false;
      if (StartsWith("]]>")) return Fail("']]>' in text");
    }
    return true;
  }

  bool SkipComment() {
    const std::size_t end = text_.find("--", at_ + 4);
    if (end == std::string_view::npos) return Fail("the comment is not closed");
    if (!text_.substr(end).starts_with("-->")) return FailAt(end, "'--' in a comment");
    at_ = end + 3;
    return true;
  }

  bool SkipCData() {
    if (open_.empty()) return Fail("text outside the root element");
    return SkipPast("]]>", "the CDATA section is not closed");
  }

  bool SkipPast(std::string_view closing, const char* reason) {
    const std::size_t end = text_.find(closing, at_);
    if (end == std::string_view::npos) return Fail(reason);
    at_ = end + closing.size();
    return true;
  }

  bool SkipInstruction() {
    const std::size_t start = at_;
    at_ += 2;
    const std::string_view target = TakeName();
    if (target.empty()) return Fail("a processing instruction without a name");
    if (EqualsIgnoringCase(target, "xml"))
      return FailAt(start, "an XML declaration behind the document's start");
    if (!StartsWith("?>") && !SkipSpace())
      return Fail("no white space behind a processing instruction's name");
    return SkipPast("?>", "the processing instruction is not closed");
  }

  bool SkipXmlDeclaration() {
    if (!StartsWith("<?xml") || Rest().size() < 6 || !IsXmlSpace(text_[5])) return true;
    at_ = 5;
    static constexpr std::array<std::string_view, 3> kParts = {"version", "encoding", "standalone"};
    std::size_t next = 0;
    while (SkipSpace() && !StartsWith("?>")) {
      const std::string_view name = TakeName();
      while (next == 1 && name == kParts[2]) ++next;  // the encoding may be left out
      if (next >= kParts.size() || name != kParts[next]) return Fail("a malformed XML declaration");
      ++next;
      std::string_view value;
      if (!TakeAttributeValue(value)) return false;
      if (!IsDeclarable(name, value)) return Fail("a malformed XML declaration");
    }
    if (next == 0) return Fail("an XML declaration without a version");
    return StartsWith("?>") ? SkipPast("?>", "") : Fail("the XML declaration is not closed");
  }

  static bool IsDeclarable(std::string_view name, std::string_view value) {
    if (name == "version")
      return value.starts_with("1.") && value.find_first_not_of("0123456789.") == std::string_view::npos;
    if (name == "standalone") return value == "yes" || value == "no";
    return IsXmlEncodingName(value);
  }

  bool SkipStartTag() {
    const std::size_t start = at_++;
    const std::string_view name = TakeName();
    if (name.empty()) return FailAt(start, "'<' without an element's name");
    if (open_.empty() && rootSeen_) return FailAt(start, "a second root element");
    rootSeen_ = true;
    if (!SkipAttributes()) return false;
    if (StartsWith("/>")) return at_ += 2, true;
    if (!StartsWith(">")) return Fail("the tag " + Quoted(name) + " is not closed");
    ++at_;
    open_.push_back(name);
    return true;
  }

  bool SkipAttributes() {
    attributes_.clear();
    for (;;) {
      const bool spaced = SkipSpace();
      const std::size_t start = at_;
      const std::string_view name = TakeName();
      if (name.empty()) return true;
      if (!spaced) return FailAt(start, "no white space before the attribute " + Quoted(name));
      if (!attributes_.insert(name).second)
        return FailAt(start, "the attribute " + Quoted(name) + " stands twice");
      std::string_view value;
      if (!TakeAttributeValue(value)) return false;
    }
  }

  bool TakeAttributeValue(std::string_view& value) {
    SkipSpace();
    if (!StartsWith("=")) return Fail("an attribute without a value");
    ++at_;
    SkipSpace();
    const char quote = AtEnd() ? '\0' : text_[at_];
    if (quote != '"' && quote != '\'') return Fail("an attribute's value without quotation marks");
    const std::size_t start = ++at_;
    for (; !AtEnd() && text_[at_] != quote; ++at_) {
      if (text_[at_] == '<') return Fail("'<' in an attribute's value");
      if (text_[at_] == '&' && !CheckReference()) return false;
    }
    if (AtEnd()) return FailAt(start - 1, "an attribute's value is not closed");
    value = text_.substr(start, at_++ - start);
    return true;
  }

  bool SkipEndTag() {
    const std::size_t start = at_;
    at_ += 2;
    const std::string_view name = TakeName();
    if (open_.empty()) return FailAt(start, "the end tag " + Quoted(name) + " has no start tag");
    if (name != open_.back()) {
      return FailAt(start, "the end tag " + Quoted(name) + " does not close " + Quoted(open_.back()));
    }
    SkipSpace();
    if (!StartsWith(">")) return Fail("the end tag " + Quoted(name) + " is not closed");
    ++at_;
    open_.pop_back();
    return true;
  }

  // Looks at the reference that starts here, without moving.
  bool CheckReference() {
    const std::size_t end = text_.find(';', at_);
    if (end == std::string_view::npos) return Fail("'&' that starts no reference");
    const std::string_view name = text_.substr(at_ + 1, end - at_ - 1);
    if (name.starts_with('#'))
      return IsCharacterNumber(name.substr(1)) || Fail("a malformed character reference");
    if (!IsXmlName(name)) return Fail("'&' that starts no reference");
    for (const std::string_view known : kEntities) {
      if (name == known) return true;
    }
    return Fail("the entity " + Quoted(name) + " is not known");
  }

  static bool IsCharacterNumber(std::string_view digits) {
    const bool isHexadecimal = digits.starts_with('x');
    if (isHexadecimal) digits.remove_prefix(1);
    std::uint32_t code = 0;
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHexadecimal ? 16 : 10);
    return result.ec == std::errc() && result.ptr == digits.data() + digits.size() && IsXmlCharacter(code);
  }

  std::string_view TakeName() {
    const std::string_view name = Rest().substr(0, XmlNameLength(Rest()));
    at_ += name.size();
    return name;
  }

  bool SkipSpace() {
    const std::size_t start = at_;
    while (!AtEnd() && IsXmlSpace(text_[at_])) ++at_;
    return at_ > start;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  XmlFault fault_;
  std::vector<std::string_view> open_;
  std::unordered_set<std::string_view> attributes_;
  bool rootSeen_ = false;
};

}  // namespace

XmlFault FindXmlFault(std::string_view text) { return Scanner(text).Run(); }

}  // namespace qv
