#include "platform/CodePage.h"

#include "platform/windows/WideText.h"
#include "text/Utf8.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <utility>

namespace qv {
namespace {

struct NamedCodePage {
  std::string_view name;
  unsigned codePage;
};

constexpr unsigned kUtf16 = 1200;
constexpr unsigned kUtf16BigEndian = 1201;

// Names as they stand in files and on command lines, in small letters and without "-", "_", " " and ".".
constexpr NamedCodePage kNamed[] = {
    {"utf8", 65001},      {"utf7", 65000},     {"usascii", 20127},
    {"ascii", 20127},     {"latin1", 28591},   {"l1", 28591},
    {"latin2", 28592},    {"latin5", 28599},   {"latin9", 28605},
    {"shiftjis", 932},    {"sjis", 932},       {"mskanji", 932},
    {"windows31j", 932},  {"eucjp", 20932},    {"iso2022jp", 50220},
    {"gb2312", 936},      {"gbk", 936},        {"gb18030", 54936},
    {"big5", 950},        {"euckr", 51949},    {"uhc", 949},
    {"koi8r", 20866},     {"koi8u", 21866},    {"tis620", 874},
    {"macintosh", 10000}, {"utf16le", kUtf16}, {"utf16be", kUtf16BigEndian},
};

// The prefix of a numbered name, and the offset of its numbers.
constexpr NamedCodePage kNumbered[] = {
    {"windows", 0}, {"cp", 0}, {"ibm", 0}, {"ms", 0}, {"iso8859", 28590},
};

std::string Plain(const std::string& encoding) {
  std::string plain;
  for (const char c : encoding) {
    const bool separates = std::string_view("-_ .").find(c) != std::string_view::npos;
    if (!separates) plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return plain;
}

unsigned NumberedCodePage(std::string_view name, const NamedCodePage& row) {
  if (!name.starts_with(row.name)) return 0;
  name.remove_prefix(row.name.size());
  unsigned number = 0;
  const auto [rest, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  const bool whole = error == std::errc() && rest == name.data() + name.size() && number > 0;
  return whole ? number + row.codePage : 0;
}

// The system's conversions leave these two out.
bool IsUtf16(unsigned codePage) { return codePage == kUtf16 || codePage == kUtf16BigEndian; }

std::wstring WideOfUtf16(std::string_view bytes, unsigned codePage) {
  std::wstring wide;
  for (; bytes.size() > 1; bytes.remove_prefix(2)) {
    const auto first = static_cast<unsigned char>(bytes[0]), second = static_cast<unsigned char>(bytes[1]);
    wide += static_cast<wchar_t>(codePage == kUtf16 ? second << 8 | first : first << 8 | second);
  }
  if (!bytes.empty()) wide += wchar_t{0xFFFD};
  return wide;
}

std::string Utf16OfWide(std::wstring_view wide, unsigned codePage) {
  std::string bytes;
  for (const wchar_t unit : wide) {
    const auto low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
    bytes += codePage == kUtf16 ? low : high;
    bytes += codePage == kUtf16 ? high : low;
  }
  return bytes;
}

// 0 for an unknown name.
unsigned CodePageOf(const std::string& encoding) {
  const std::string name = Plain(encoding);
  const auto named = std::ranges::find(kNamed, name, &NamedCodePage::name);
  unsigned codePage = named == std::end(kNamed) ? 0 : named->codePage;
  for (const NamedCodePage& row : kNumbered) {
    if (codePage == 0) codePage = NumberedCodePage(name, row);
  }
  const bool known = IsUtf16(codePage) || (codePage != 0 && IsValidCodePage(codePage) != FALSE);
  return known ? codePage : 0;
}

}  // namespace

std::string ToUtf8(std::string_view text) { return Narrow(Widen(text), kUtf8CodePage); }

std::string FromUtf8(std::string_view utf8) { return Narrow(Widen(utf8, kUtf8CodePage)); }

std::optional<std::string> DecodeText(std::string_view text, const std::string& encoding) {
  const unsigned codePage = CodePageOf(encoding);
  if (codePage == 0) return std::nullopt;
  return Narrow(IsUtf16(codePage) ? WideOfUtf16(text, codePage) : Widen(text, codePage), kUtf8CodePage);
}

DecodedText DecodeStrictly(std::string_view text, const std::string& encoding) {
  std::optional<std::string> decoded = DecodeText(text, encoding);
  if (!decoded) return {};
  const std::size_t lost = decoded->find(kReplacementCharacter);
  const bool whole = lost == std::string::npos || EncodeText(*decoded, encoding) == text;
  if (!whole) decoded->resize(lost);
  return {std::move(*decoded), true, whole};
}

std::optional<std::string> EncodeText(std::string_view utf8, const std::string& encoding) {
  const unsigned codePage = CodePageOf(encoding);
  if (codePage == 0) return std::nullopt;
  const std::wstring wide = Widen(utf8, kUtf8CodePage);
  return IsUtf16(codePage) ? Utf16OfWide(wide, codePage) : Narrow(wide, codePage);
}

}  // namespace qv
