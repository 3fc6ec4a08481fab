#include "text/Phrases.h"

#include <cstddef>

namespace qv {
namespace {

constexpr std::size_t kMaxBrief = 60;

// Not inside a character of UTF-8, which has at most three bytes like 10xxxxxx after its first.
std::size_t BriefEnd(std::string_view text) {
  std::size_t end = kMaxBrief;
  while (end > kMaxBrief - 3 && (text[end] & 0xC0) == 0x80) --end;
  return end;
}

}  // namespace

std::string Quoted(std::string_view text) { return std::string("\"").append(text).append("\""); }

std::string Brief(std::string_view text) {
  if (text.size() <= kMaxBrief) return std::string(text);
  return std::string(text.substr(0, BriefEnd(text))) + "...";
}

}  // namespace qv
