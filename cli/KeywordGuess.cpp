#include "cli/KeywordGuess.h"

#include <algorithm>
#include <numeric>

namespace qv {
namespace {

/// Letters and digits alone, in lower case: "Part-Qty" and "part qty" are one.
std::string Plain(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    if ((lower >= 'a' && lower <= 'z') || (lower >= '0' && lower <= '9')) plain += lower;
  }
  return plain;
}

/// The fewest letters to change, add or take away.
std::size_t Distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < left.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < right.size(); ++j) {
      const std::size_t changed = diagonal + (left[i] != right[j]);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

using Nearness = bool (*)(const std::string& wanted, const std::string& known);

// From the surest to the least sure; the first that fits exactly one keyword decides.
constexpr Nearness kNearnesses[] = {
    [](const std::string& wanted, const std::string& known) { return wanted == known; },
    [](const std::string& wanted, const std::string& known) {
      return wanted.size() > 3 && Distance(wanted, known) <= 1 + wanted.size() / 8;
    },
    [](const std::string& wanted, const std::string& known) {
      return wanted.size() > 2 && (known.ends_with(wanted) || known.starts_with(wanted));
    },
};

std::vector<std::string_view> KeywordsOf(const RecordType& type) {
  std::vector<std::string_view> keywords;
  for (const RecordField& field : type.fields)
    for (const std::string_view keyword : {field.keyword, field.keyword2})
      if (!keyword.empty()) keywords.push_back(keyword);
  return keywords;
}

bool Knows(const RecordType& type, std::string_view keyword) {
  return FindFieldOfColumn(type, keyword) != nullptr ||
         std::any_of(type.fields.begin(), type.fields.end(), [&](const RecordField& field) {
           return field.type == FieldType::List && Knows(*field.elements, keyword);
         });
}

}  // namespace

bool SameIgnoringCase(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&](char a, char b) { return lower(a) == lower(b); });
}

std::string GuessKeyword(const RecordType& type, std::string_view keyword) {
  const std::string wanted = Plain(keyword);
  if (Knows(type, keyword) || wanted.empty()) return {};
  for (const Nearness isNear : kNearnesses) {
    std::vector<std::string_view> near;
    for (const std::string_view known : KeywordsOf(type))
      if (isNear(wanted, Plain(known))) near.push_back(known);
    if (near.size() == 1) return std::string(near.front());
    if (!near.empty()) return {};
  }
  return {};
}

std::string_view GuessKind(const RecordType& type, const std::vector<std::string>& keywords) {
  const auto knows = [](const RecordType& kind) {
    return [&kind](const std::string& keyword) { return Knows(kind, keyword); };
  };
  if (keywords.empty() || std::any_of(keywords.begin(), keywords.end(), knows(type))) return {};
  for (const RecordType& kind : RecordTypes())
    if (std::all_of(keywords.begin(), keywords.end(), knows(kind))) return kind.name;
  return {};
}

}  // namespace qv
