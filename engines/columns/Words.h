#pragma once

#include <span>
#include <string_view>

namespace qv {

/// One choice of an enumeration: how it is spelled in a file and the number that a record keeps.
struct Word {
  std::string_view text;
  int value;
};

/// The choices of a column in one direction. Reading compares ignoring ASCII case and takes `otherValue` for
/// anything else; writing takes `otherText` for a number that has no word.
struct WordTable {
  std::span<const Word> words;
  int otherValue = 0;
  std::string_view otherText = {};
};

/// The first word that matches, or null.
const Word* FindWord(const WordTable& table, std::string_view text);

std::string_view TextOf(const WordTable& table, int value);

extern const WordTable kToolTypes;
extern const WordTable kPierceTypesRead;
extern const WordTable kPierceTypesWritten;
extern const WordTable kAfterCutInformation;
extern const WordTable kCommonCuttingStyles;
extern const WordTable kStartingCornersRead;
extern const WordTable kChainDirections;
extern const WordTable kLeadTypes;
extern const WordTable kYesNo;
extern const WordTable kYesUnlessNo;

}  // namespace qv
