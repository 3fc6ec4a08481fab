#include "cli/LayoutGuess.h"

#include <algorithm>
#include <map>
#include <utility>

namespace qv {
namespace {

struct NamedDelimiter {
  char character;
  const char* name;  // in a format
};

constexpr NamedDelimiter kDelimiters[] = {{';', "Semicolon"}, {'\t', "Tab"}, {',', "Comma"}, {' ', "Space"}};

/// What a file may have been separated by, from the surest to the least sure.
struct Candidate {
  char delimiter;
  bool treatAsOne;
  const char* shown;
  const char* advice;
};

constexpr Candidate kCandidates[] = {
    {';', false, ";", "Semicolon"},
    {'\t', false, "a tab", "Tab"},
    {',', false, ",", "Comma"},
    {'|', false, "|", "Other, which is |"},
    {' ', false, "a blank", "Space"},
    {' ', true, "runs of blanks", "Space and TreatAsOne=\"true\" in the format file"}};

std::string Trimmed(std::string text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\r'; };
  while (!text.empty() && isBlank(text.back())) text.pop_back();
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  if (text.starts_with('"')) text.erase(0, 1);
  if (text.ends_with('"')) text.pop_back();
  return text;
}

std::string Times(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

constexpr char kSingleQuote = '\'';

bool StandsBetween(std::string_view field, char qualifier) {
  return field.size() > 1 && field.front() == qualifier && field.back() == qualifier;
}

class Sample {
 public:
  explicit Sample(const LayoutSample& sample)
      : header_(sample.header), rows_(sample.rows), columns_(sample.columns) {}

  std::size_t Size() const { return rows_.size(); }

  std::size_t Filled(const Layout& layout) const {
    return static_cast<std::size_t>(std::count_if(
        rows_.begin(), rows_.end(), [&](std::string_view row) { return Fills(row, layout, columns_); }));
  }

  Width UsualWidth(const Layout& layout) const { return qv::UsualWidth(rows_, layout); }

  /// Whether the layout fits header and rows, and the other one fails most rows.
  bool IsFarBetter(const Layout& layout, const Layout& than) const {
    return columns_ > 1 && Filled(layout) == Size() && 2 * Filled(than) <= Size() && SplitsHeader(layout);
  }

  /// Whether the layout makes a table of rows that the other one does not split at all.
  bool IsFirstToSplit(const Layout& layout, const Layout& than) const {
    if (columns_ == 1 || Size() < 3 || layout.delimiters == " ") return false;
    const Width before = UsualWidth(than);
    const Width after = UsualWidth(layout);
    return before.fields == 1 && before.rows == Size() && after.fields > 1 && after.rows == Size() &&
           SplitsHeader(layout);
  }

  /// Whether each field of every row stands between two of the character.
  bool IsWrapped(const Layout& layout, char qualifier) const {
    return std::all_of(rows_.begin(), rows_.end(), [&](std::string_view row) {
      const auto fields = PlainFields(row, layout);
      return !fields.empty() && std::all_of(fields.begin(), fields.end(), [&](const std::string& field) {
        return StandsBetween(field, qualifier);
      });
    });
  }

  bool HasWrapped(const Layout& layout, char qualifier) const {
    return std::any_of(rows_.begin(), rows_.end(), [&](std::string_view row) {
      const auto fields = PlainFields(row, layout);
      return std::any_of(fields.begin(), fields.end(),
                         [&](const std::string& field) { return StandsBetween(field, qualifier); });
    });
  }

  /// Whether the layout does not take the words of a text ("Plate 3") for fields: there are more than two
  /// columns, and one of them is of numbers.
  bool IsMoreThanWords(const Layout& layout) const {
    if (columns_ < 3) return false;
    std::vector<std::size_t> rowsWithNumber(columns_);
    for (const std::string_view row : rows_) {
      const auto fields = PlainFields(row, layout);
      for (std::size_t rank = 0; rank < std::min(fields.size(), columns_); ++rank)
        rowsWithNumber[rank] += !fields[rank].empty() && fields[rank][0] >= '0' && fields[rank][0] <= '9';
    }
    return std::find(rowsWithNumber.begin(), rowsWithNumber.end(), Size()) != rowsWithNumber.end();
  }

  /// Whether the qualifier is there, and around fields rather than in texts as an apostrophe is, in the rows
  /// that the other layout fails.
  bool Encloses(const Layout& layout, const Layout& than) const {
    const std::string around = layout.delimiters + ' ' + layout.qualifier;
    bool isThere = false;
    for (const std::string_view row : rows_) {
      if (Fills(row, than, columns_)) continue;
      bool isInside = false;
      for (std::size_t at = 0; at < row.size(); ++at) {
        if (row[at] != layout.qualifier) continue;
        const bool isAtEnd = isInside ? at + 1 == row.size() : at == 0;
        if (!isAtEnd && around.find(row[isInside ? at + 1 : at - 1]) == around.npos) return false;
        isInside = !isInside;
        isThere = true;
      }
    }
    return isThere;
  }

  /// Whether the layout fits header and rows, and the other one fails some row.
  bool IsBetter(const Layout& layout, const Layout& than) const {
    return columns_ > 1 && Filled(layout) == Size() && Filled(than) < Size() && SplitsHeader(layout);
  }

  /// How many fields the layout gives, in words that stand behind "there would be".
  std::string WouldBe(const Layout& layout) const {
    return std::to_string(Filled(layout) == Size() ? columns_ : UsualWidth(layout).fields);
  }

 private:
  /// A comma in every row may belong to texts; one that parts the header as well does not.
  bool SplitsHeader(const Layout& layout) const {
    return Fills(header_, layout, columns_) ||
           PlainFields(header_, layout).size() == UsualWidth(layout).fields;
  }

  std::string_view header_;
  const std::vector<std::string_view>& rows_;
  std::size_t columns_;
};

std::string Found(const Sample& sample, const Layout& now) {
  const Width usual = sample.UsualWidth(now);
  return Times(usual.fields, "field") + " found in " + std::to_string(usual.rows) + " of " +
         Times(sample.Size(), "row");
}

LayoutGuess GuessDelimiter(const Sample& sample, const Layout& now, bool isCsv) {
  for (const Candidate& candidate : kCandidates) {
    if (now.delimiters.find(candidate.delimiter) != std::string::npos) continue;
    const Layout other{std::string(1, candidate.delimiter), now.qualifier, candidate.treatAsOne};
    if (!sample.IsFarBetter(other, now) && !sample.IsFirstToSplit(other, now)) continue;
    if (candidate.delimiter == ' ' && !sample.IsMoreThanWords(other)) continue;
    std::string message =
        Found(sample, now) + "; with " + candidate.shown + " there would be " + sample.WouldBe(other);
    message += isCsv ? ". A .csv file always has commas: name the file .txt and use a format with "
                     : ". Use a format with ";
    return {"suggest-delimiter", message + "the delimiter " + candidate.advice};
  }
  return {};
}

LayoutGuess GuessWrapping(const Sample& sample, const Layout& now) {
  if (now.qualifier == kSingleQuote || !sample.IsWrapped(now, kSingleQuote)) return {};
  return {"suggest-qualifier", "every field stands between single quotes, which the format does not name"};
}

LayoutGuess GuessQualifier(const Sample& sample, const Layout& now) {
  constexpr std::pair<char, const char*> kQualifiers[] = {
      {'"', "double quotes"}, {kSingleQuote, "single quotes"}, {'\0', "no text qualifier"}};
  for (const auto& [qualifier, name] : kQualifiers) {
    const Layout other{now.delimiters, qualifier, now.treatAsOne};
    if (qualifier == now.qualifier || !sample.IsBetter(other, now)) continue;
    // Without a qualifier, single quotes would become a part of the texts.
    const bool isCertain =
        qualifier == '\0' ? !sample.HasWrapped(other, kSingleQuote) : sample.Encloses(other, now);
    if (isCertain)
      return {"suggest-qualifier", Found(sample, now) + "; with " + name + " in the format there would be " +
                                       sample.WouldBe(other) + " in all"};
  }
  return {};
}

LayoutGuess GuessTreatAsOne(const Sample& sample, const Layout& now) {
  Layout other = now;
  other.treatAsOne = !now.treatAsOne;
  if (!sample.IsBetter(other, now)) return {};
  return {"suggest-treat-as-one",
          Found(sample, now) + "; with consecutive delimiters counted " +
              (other.treatAsOne ? "as one (TreatAsOne=\"true\" in the format file)"
                                : "one by one (TreatAsOne=\"0\" in the format file)") +
              " there would be " + sample.WouldBe(other) + " in all"};
}

}  // namespace

Layout LayoutOf(const OptionForm& form, bool isCsv) {
  if (isCsv) return {",", '"', false};
  Layout layout;
  for (const NamedDelimiter& delimiter : kDelimiters)
    if (form.Delimiters.find(delimiter.name) != std::string::npos) layout.delimiters += delimiter.character;
  if (form.Delimiters.find("Other") != std::string::npos) layout.delimiters += form.OtherDelimiters;
  layout.qualifier = form.Qualifier == 2 ? '\0' : form.Qualifier == 1 ? '\'' : '"';
  layout.treatAsOne = form.TreatAsOne;
  return layout;
}

std::vector<std::string> PlainFields(std::string_view line, const Layout& layout) {
  std::vector<std::string> fields;
  std::string field;
  bool isInside = false;
  bool isClosed = false;  // a field that was qualified, maybe an empty one
  for (const char c : line) {
    if (c == layout.qualifier && c != '\0') {
      isInside = !isInside;
      isClosed = true;
    } else if (!isInside && layout.delimiters.find(c) != std::string::npos) {
      if (!field.empty() || isClosed || !layout.treatAsOne) fields.push_back(Trimmed(field));
      field.clear();
      isClosed = false;
    } else {
      field += c;
    }
  }
  field = Trimmed(field);
  if (!field.empty() || isClosed) fields.push_back(field);
  return fields;
}

bool Fills(std::string_view line, const Layout& layout, std::size_t columns) {
  const auto fields = PlainFields(line, layout);
  const bool endsOpen = !line.empty() && layout.delimiters.find(line.back()) != std::string::npos;
  const auto last =
      std::find_if(fields.rbegin(), fields.rend(), [](const auto& field) { return !field.empty(); });
  return fields.size() + endsOpen >= columns && static_cast<std::size_t>(fields.rend() - last) <= columns;
}

Width UsualWidth(const std::vector<std::string_view>& rows, const Layout& layout) {
  std::map<std::size_t, std::size_t> rowsOfWidth;
  for (const std::string_view row : rows) ++rowsOfWidth[PlainFields(row, layout).size()];
  Width usual;
  for (const auto& [fields, count] : rowsOfWidth)
    if (count >= usual.rows) usual = {fields, count};
  return usual;
}

LayoutGuess GuessLayout(LayoutSample start, const OptionForm& form, bool isCsv) {
  const Layout now = LayoutOf(form, isCsv);
  std::erase_if(start.rows, [&](std::string_view row) {
    return row.find_first_not_of(now.delimiters + ' ') == row.npos;  // it says nothing
  });
  const Sample sample(start);
  if (sample.Size() == 0) return {};
  if (!start.hasMisfits) return isCsv ? LayoutGuess() : GuessWrapping(sample, now);
  LayoutGuess guess = GuessDelimiter(sample, now, isCsv);
  for (const auto more : {GuessWrapping, GuessQualifier, GuessTreatAsOne})
    if (guess.code.empty() && !isCsv) guess = more(sample, now);
  return guess;
}

}  // namespace qv
