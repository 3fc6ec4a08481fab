#include "platform/XmlEncoding.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <utility>

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
// is left to the check of the text.
std::string DeclaredEncoding(std::string_view bytes) {
  static constexpr std::string_view kKey = "encoding";
  const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
  const std::size_t key = declaration.starts_with("<?xml") ? declaration.find(kKey) : std::string_view::npos;
  if (key == std::string_view::npos) return "UTF-8";
  const std::size_t open = declaration.find_first_of("\"'", key + kKey.size());
  if (open == std::string_view::npos) return "UTF-8";
  const std::size_t close = declaration.find(declaration[open], open + 1);
  const std::string_view name = declaration.substr(open + 1, close - open - 1);
  return IsXmlEncodingName(name) ? std::string(name) : "UTF-8";
}

}  // namespace

bool IsXmlEncodingName(std::string_view name) {
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  const auto mayFollow = [&](char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '-';
  };
  return !name.empty() && isLetter(name[0]) && std::all_of(name.begin(), name.end(), mayFollow);
}

std::optional<std::string> DecodeXml(std::string_view bytes, XmlError& error) {
  const Mark* mark = FindMark(bytes);
  const std::string encoding = mark != nullptr ? mark->encoding : DeclaredEncoding(bytes);
  if (mark != nullptr) bytes.remove_prefix(mark->length);
  DecodedText decoded = DecodeStrictly(bytes, encoding);
  if (!decoded.knownEncoding) {
    LocateXmlError(bytes, 0, error);
    error.reason = "the encoding '" + encoding + "' is not known";
    return std::nullopt;
  }
  if (!decoded.whole) {
    LocateXmlError(decoded.utf8, decoded.utf8.size(), error);
    error.reason = "a byte that is not " + encoding;
    return std::nullopt;
  }
  return std::move(decoded.utf8);
}

void LocateXmlError(std::string_view text, std::size_t offset, XmlError& error) {
  error.line = 1;
  error.column = 1;
  for (std::size_t index = 0; index < offset && index < text.size(); ++index) {
    const char c = text[index];
    if (c == '\n' || (c == '\r' && text.substr(index + 1, 1) != "\n")) {
      ++error.line;
      error.column = 1;
    } else if (c != '\r' && (c & 0xC0) != 0x80) {
      ++error.column;
    }
  }
}

}  // namespace qv
