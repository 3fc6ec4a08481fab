#include "format/Delimiters.h"

namespace qv {
namespace {

constexpr Delimiter kWrittenFirst[] = {Delimiter::Comma, Delimiter::Semicolon, Delimiter::Tab,
                                       Delimiter::Space};

char CharacterOf(Delimiter delimiter) { return kDelimiterCharacters[static_cast<std::size_t>(delimiter)]; }

}  // namespace

std::string DelimitersRead(std::string_view names, std::string_view other) {
  std::string characters;
  for (const Delimiter delimiter : kWrittenFirst)
    if (HasDelimiter(names, delimiter)) characters += CharacterOf(delimiter);
  if (HasDelimiter(names, Delimiter::Other)) characters += other;
  return characters;
}

char DelimiterWritten(std::string_view names, std::string_view other) {
  for (const Delimiter delimiter : kWrittenFirst)
    if (HasDelimiter(names, delimiter)) return CharacterOf(delimiter);
  return HasDelimiter(names, Delimiter::Other) && !other.empty() ? other.front() : '\0';
}

SplitRules SplitRulesOf(std::string_view names, std::string_view other, int qualifier, bool treatAsOne) {
  const char character = qualifier == 2 ? '\0' : qualifier == 1 ? '\'' : '"';
  return {DelimitersRead(names, other), character, treatAsOne};
}

}  // namespace qv
