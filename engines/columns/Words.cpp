#include "engines/columns/Words.h"

#include "text/Ascii.h"

#include <algorithm>

namespace qv {
namespace {

// Machine controls number the shapes so; 107 and 108 are out of alphabetical order.
constexpr Word kToolTypeWords[] = {{"RE", 3},   {"RO", 1},   {"SQ", 103}, {"SD", 104}, {"DD", 105},
                                   {"OB", 106}, {"SP", 108}, {"TR", 107}, {"CR", 109}, {"RC", 110}};

constexpr Word kPierceTypeWords[] = {{"Standard", 0},   {"Shutterless", 1}, {"Power", 2},    {"Quick", 3},
                                     {"Peck/Pulse", 4}, {"Other", 5},       {"Pre-Punch", 7}};

constexpr Word kAfterCutWords[] = {{"None", 0}, {"Program Stop", 1}, {"Optional Program Stop", 2}};

constexpr Word kStyleWords[] = {{"Row By Row", 0}, {"Part By Part", 1}, {"Straight Edge Cut", 2}};

// "no prefer" shares its number with "bottom left".
constexpr Word kCornerWords[] = {
    {"top left", 0}, {"top right", 1}, {"bottom left", 2}, {"no prefer", 2}, {"bottom right", 3}};

constexpr Word kDirectionWords[] = {{"X Direction", 1}, {"Y Direction", 0}};

constexpr Word kLeadWords[] = {{"Line", 0}, {"None", 1}};

constexpr Word kYesNoWords[] = {{"Y", 1}, {"N", 0}};

}  // namespace

const WordTable kToolTypes{kToolTypeWords};
// Pre-punching is written for other software; a file that says so is read as "Standard".
const WordTable kPierceTypesRead{std::span(kPierceTypeWords).first<6>()};
const WordTable kPierceTypesWritten{kPierceTypeWords};
const WordTable kAfterCutInformation{kAfterCutWords};
const WordTable kCommonCuttingStyles{kStyleWords};
const WordTable kStartingCornersRead{kCornerWords};
const WordTable kChainDirections{kDirectionWords, 1};
const WordTable kLeadTypes{kLeadWords, 0, "None"};
const WordTable kYesNo{kYesNoWords, 0, "N"};
const WordTable kYesUnlessNo{kYesNoWords, 1, "N"};

const Word* FindWord(const WordTable& table, std::string_view text) {
  const auto found = std::find_if(table.words.begin(), table.words.end(),
                                  [&](const Word& word) { return EqualsIgnoringCase(word.text, text); });
  return found == table.words.end() ? nullptr : &*found;
}

std::string_view TextOf(const WordTable& table, int value) {
  const auto found = std::find_if(table.words.begin(), table.words.end(),
                                  [&](const Word& word) { return word.value == value; });
  return found == table.words.end() ? table.otherText : found->text;
}

}  // namespace qv
