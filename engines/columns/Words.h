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

// Machine controls number the shapes so; 107 and 108 are out of alphabetical order.
inline constexpr Word kToolTypeWords[] = {{"RE", 3},   {"RO", 1},   {"SQ", 103}, {"SD", 104}, {"DD", 105},
                                          {"OB", 106}, {"SP", 108}, {"TR", 107}, {"CR", 109}, {"RC", 110}};

inline constexpr Word kPierceTypeWords[] = {{"Standard", 0}, {"Shutterless", 1}, {"Power", 2},
                                            {"Quick", 3},    {"Peck/Pulse", 4},  {"Other", 5},
                                            {"Pre-Punch", 7}};

inline constexpr Word kAfterCutWords[] = {{"None", 0}, {"Program Stop", 1}, {"Optional Program Stop", 2}};

inline constexpr Word kStyleWords[] = {{"Row By Row", 0}, {"Part By Part", 1}, {"Straight Edge Cut", 2}};

// "no prefer" shares its number with "bottom left".
inline constexpr Word kCornerWords[] = {
    {"top left", 0}, {"top right", 1}, {"bottom left", 2}, {"no prefer", 2}, {"bottom right", 3}};

inline constexpr Word kDirectionWords[] = {{"X Direction", 1}, {"Y Direction", 0}};

inline constexpr Word kLeadWords[] = {{"Line", 0}, {"None", 1}};

inline constexpr Word kYesNoWords[] = {{"Y", 1}, {"N", 0}};

inline constexpr WordTable kToolTypes{kToolTypeWords};
// Pre-punching is written for other software; a file that says so is read as "Standard".
inline constexpr WordTable kPierceTypesRead{std::span(kPierceTypeWords).first<6>()};
inline constexpr WordTable kPierceTypesWritten{kPierceTypeWords};
inline constexpr WordTable kAfterCutInformation{kAfterCutWords};
inline constexpr WordTable kCommonCuttingStyles{kStyleWords};
inline constexpr WordTable kStartingCornersRead{kCornerWords};
inline constexpr WordTable kChainDirections{kDirectionWords, 1};
inline constexpr WordTable kLeadTypes{kLeadWords, 0, "None"};
inline constexpr WordTable kYesNo{kYesNoWords, 0, "N"};
inline constexpr WordTable kYesUnlessNo{kYesNoWords, 1, "N"};

}  // namespace qv
