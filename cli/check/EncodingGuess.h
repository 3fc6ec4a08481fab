#pragma once

#include "cli/TextCoding.h"

#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Which encodings texts may be of, by what languages the characters would spell.
struct EncodingGuess {
  std::vector<std::string> names;  ///< the likeliest first; of those that give the same texts only one
  bool isSure = false;             ///< the first of them, beyond doubt
};

/// Looks at the fields that are not ASCII. `current` is what they are read in now: when that is likely too,
/// its texts are a reason not to be sure of others, and it is not among the names.
EncodingGuess GuessEncoding(const std::vector<std::string_view>& lines, const TextCoding& current);

/// "UTF-16" or "UTF-32" when a file that starts so seems to be in it, also without a mark; else empty.
std::string_view WideEncodingOf(std::string_view bytes);

}  // namespace qv
