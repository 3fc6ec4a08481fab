#include "engines/columns/Words.h"

#include "text/Ascii.h"

#include <algorithm>

namespace qv {

const Word* FindWord(const WordTable& table, std::string_view text) {
  const auto found = std::ranges::find_if(
      table.words, [&](const Word& word) { return EqualsIgnoringCase(word.text, text); });
  return found == table.words.end() ? nullptr : &*found;
}

std::string_view TextOf(const WordTable& table, int value) {
  const auto found = std::ranges::find(table.words, value, &Word::value);
  return found == table.words.end() ? table.otherText : found->text;
}

}  // namespace qv
