#pragma once

#include "engines/columns/RecordFields.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// What is the same however a heading is written, in UTF-8: letters and digits alone, in lower case, "ü" as
/// "ue", without a unit in brackets at the end, "no" for "number", "Nr." and "#". "Teile-Nr." and
/// "TEILENUMMER" are one.
std::string PlainHeading(std::string_view heading);

/// The keywords that a kind's columns may have been given headings for, and the headings that other software
/// writes for them: the keywords themselves and everyday English and German ones.
class Headings {
 public:
  explicit Headings(const RecordType& type);

  /// For each heading, in UTF-8, the keyword of the column that it surely stands for, or "Ignore". No keyword
  /// but that is there twice: an exact keyword comes before one that is written in another way, and that
  /// before an everyday heading.
  std::vector<std::string> KeywordsFor(const std::vector<std::string>& headings) const;

 private:
  struct Meaning {
    std::string_view keyword;
    std::size_t doubt;  // 1: the keyword in another spelling; then the place among the everyday headings
  };

  std::map<std::string, Meaning> meanings_;  // by plain heading
};

/// The same for a kind and headings that are looked at only once.
inline std::vector<std::string> ProposeColumns(const RecordType& type,
                                               const std::vector<std::string>& headings) {
  return Headings(type).KeywordsFor(headings);
}

}  // namespace qv
