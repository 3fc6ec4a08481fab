#include "platform/xml/posix/XmlEncoding.h"

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

}  // namespace

DecodedXml DecodeXml(std::string_view bytes) {
  const Mark* const mark = FindMark(bytes);
  std::string encoding = mark != nullptr ? mark->encoding : DeclaredEncoding(bytes);
  if (mark != nullptr) bytes.remove_prefix(mark->length);
  DecodedText text = DecodeStrictly(bytes, encoding);
  return {std::move(encoding), std::move(text)};
}

}  // namespace qv
