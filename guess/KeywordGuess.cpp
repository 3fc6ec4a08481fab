#include "guess/KeywordGuess.h"

#include "text/Ascii.h"

#include <algorithm>

namespace qv {

std::string PlainWord(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    const char lower = ToLower(c);
    if ((lower >= 'a' && lower <= 'z') || IsDigit(lower) || (lower & 0x80) != 0) plain += lower;
  }
  return plain;
}

bool Knows(const RecordType& type, std::string_view keyword) {
  if (FindFieldOfColumn(type, keyword) != nullptr) return true;
  return std::ranges::any_of(AllColumns(type),
                             [&](const KindColumn& known) { return known.column->keyword == keyword; });
}

namespace {

/// Whether one letter is too many or too few, two have changed places, or one of a long word is another.
/// "Location" is no slip of "Rotation".
bool IsSlip(std::string_view left, std::string_view right) {
  if (left.size() > right.size()) std::swap(left, right);
  std::size_t at = 0;
  while (at < left.size() && left[at] == right[at]) ++at;
  left.remove_prefix(at);
  right.remove_prefix(at);
  if (left.size() != right.size()) return left == right.substr(1);
  if (left.size() < 2 || left.substr(1) == right.substr(1)) return at + left.size() > 7;
  return left[0] == right[1] && left[1] == right[0] && left.substr(2) == right.substr(2);
}

/// What a record of the kind is: "part".
std::string_view SubjectOf(const RecordType& type) {
  const std::string_view word = type.name.substr(0, type.name.find('-'));
  return word.substr(0, word.size() - word.ends_with('s'));
}

using Nearness = bool (*)(const std::string& wanted, const std::string& known);

// From the surest to the least sure; the first that fits any keyword decides.
constexpr Nearness kNearnesses[] = {
    [](const std::string& wanted, const std::string& known) { return wanted == known; },
    [](const std::string& wanted, const std::string& known) {
      return wanted.size() > 3 && IsSlip(wanted, known);
    },
    [](const std::string& wanted, const std::string& known) {
      return wanted.size() > 2 &&
             (known.ends_with(wanted) || known.starts_with(wanted) || wanted.ends_with(known));
    },
};

/// Whether a part of a keyword says enough: its first half, or all but for what the list is of.
bool SaysEnough(const std::string& wanted, const std::string& known, std::string_view subject) {
  const auto differBy = [&](std::string_view word) {
    return wanted == std::string(word) + known || known == std::string(word) + wanted;
  };
  return (known.starts_with(wanted) && 2 * wanted.size() >= known.size()) || IsSlip(wanted, known) ||
         differBy(subject) || (wanted.ends_with("thickness") && differBy("material"));
}

bool Reads(const RecordType& type, std::string_view keyword) {
  const RecordField* const field = FindFieldOfColumn(type, keyword);
  return field != nullptr && field->IsRead();
}

/// Whether a format of these columns is one of another kind.
bool BelongsElsewhere(const RecordType& type, const std::vector<std::string>& keywords) {
  return std::ranges::any_of(RecordTypes(), [&](const RecordType& kind) {
    const auto isKnown = [&](const std::string& keyword) { return Knows(kind, keyword); };
    return &kind != &type && std::ranges::all_of(keywords, isKnown);
  });
}

/// The only keyword of the kind that is near to one that it does not know; empty when none or several are.
std::string OnlyNear(const RecordType& type, std::string_view keyword) {
  const std::string wanted = PlainWord(keyword);
  if (wanted.empty() || Knows(type, keyword)) return {};
  for (const Nearness isNear : kNearnesses) {
    std::vector<std::string_view> near;
    for (const RecordField& field : type.fields)
      for (const FieldColumn& column : field.columns)
        if (!column.keyword.empty() && isNear(wanted, PlainWord(column.keyword)))
          near.push_back(column.keyword);
    if (near.empty()) continue;
    const std::string known = PlainWord(near.front());
    const bool isSure = near.size() == 1 && (wanted == known || SaysEnough(wanted, known, SubjectOf(type)));
    return isSure ? std::string(near.front()) : std::string();
  }
  return {};
}

}  // namespace

std::vector<KeywordGuess> GuessKeywords(const RecordType& type, const std::vector<std::string>& keywords) {
  if (BelongsElsewhere(type, keywords)) return {};
  // Per keyword of the format, the field that it stands for or seems to stand for.
  std::vector<const RecordField*> fields;
  std::vector<KeywordGuess> guesses;
  for (const std::string& keyword : keywords) {
    const std::string meant = OnlyNear(type, keyword);
    fields.push_back(FindFieldOfColumn(type, meant.empty() ? keyword : meant));
    if (Reads(type, meant)) guesses.push_back({keyword, meant});
  }
  std::erase_if(guesses, [&](const KeywordGuess& guess) {
    return std::count(fields.begin(), fields.end(), FindFieldOfColumn(type, guess.meant)) > 1;
  });
  return guesses;
}

std::string_view GuessKind(const RecordType& type, const std::vector<std::string>& keywords) {
  const auto isKnown = [&](const std::string& keyword) { return Knows(type, keyword); };
  const auto isForeign = [&](const std::string& keyword) { return OnlyNear(type, keyword).empty(); };
  if (std::ranges::any_of(keywords, isKnown) || std::ranges::count_if(keywords, isForeign) < 2) return {};
  std::vector<std::string_view> kinds;
  for (const RecordType& kind : RecordTypes())
    if (std::all_of(keywords.begin(), keywords.end(), [&](const auto& word) { return Reads(kind, word); }))
      kinds.push_back(kind.name);
  return kinds.size() == 1 ? kinds.front() : std::string_view();
}

}  // namespace qv
