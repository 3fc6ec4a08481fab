#pragma once

#include "engines/columns/RecordFields.h"

#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Letters, with all that is not ASCII, and digits in lower case: "Part-Qty" and "part qty" are one.
std::string PlainWord(std::string_view text);

/// Whether the kind has a column of this keyword, read or written.
bool Knows(const RecordType& type, std::string_view keyword);

struct KeywordGuess {
  std::string keyword;  ///< of a format; the kind does not know it
  std::string meant;    ///< the kind's
};

/// What a format means by those of its keywords that the kind does not know: keywords that an import reads
/// and that the format does not have. What could mean two things is left out.
std::vector<KeywordGuess> GuessKeywords(const RecordType& type, const std::vector<std::string>& keywords);

/// The name of the only kind that an import reads all of the keywords for, when `type` knows none of them and
/// several cannot be slips of its own; else empty.
std::string_view GuessKind(const RecordType& type, const std::vector<std::string>& keywords);

}  // namespace qv
