#include "guess/LayoutGuess.h"

#include "format/FormatColumns.h"
#include "guess/Headings.h"
#include "text/Phrases.h"

#include <algorithm>
#include <compare>
#include <map>
#include <utility>

namespace qv {
namespace {

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

constexpr char kSingleQuote = '\'';

constexpr std::size_t kSampleLines = 1000;

// How far a layout is looked for that nobody has named.
constexpr std::size_t kHeaderSearch = 50;
constexpr std::size_t kProposalLines = 200;

/// How many of the fields are between two single quotes.
std::size_t CountQuoted(const std::vector<std::string>& fields) {
  return static_cast<std::size_t>(std::count_if(fields.begin(), fields.end(), [](const std::string& field) {
    return field.size() > 1 && field.front() == kSingleQuote && field.back() == kSingleQuote;
  }));
}

class Sample {
 public:
  explicit Sample(const LayoutSample& sample)
      : header_(sample.header), rows_(sample.rows), columns_(sample.columns) {}

  std::size_t Size() const { return rows_.size(); }

  std::size_t Filled(const SplitRules& layout) const {
    const auto fits = [&](std::string_view row) { return Fills(row, layout, columns_); };
    return static_cast<std::size_t>(std::ranges::count_if(rows_, fits));
  }

  Width UsualWidth(const SplitRules& layout) const { return qv::UsualWidth(rows_, layout); }

  /// One row in twenty may be a total, a footnote or a slip.
  bool IsNearlyAll(std::size_t rows) const { return 20 * (Size() - rows) <= Size(); }

  /// Whether the layout fits header and rows, and the other one fails most rows.
  bool IsFarBetter(const SplitRules& layout, const SplitRules& than) const {
    return columns_ > 1 && IsNearlyAll(Filled(layout)) && 2 * Filled(than) <= Size() && SplitsHeader(layout);
  }

  /// Whether the layout makes a table of rows that the other one does not split at all.
  bool IsFirstToSplit(const SplitRules& layout, const SplitRules& than) const {
    if (columns_ == 1 || Size() < 3 || layout.delimiters == " ") return false;
    const Width before = UsualWidth(than);
    const Width after = UsualWidth(layout);
    return before.fields == 1 && IsNearlyAll(before.rows) && after.fields > 1 && IsNearlyAll(after.rows) &&
           SplitsHeader(layout);
  }

  bool IsQuoted(const SplitRules& layout) const {
    return std::all_of(rows_.begin(), rows_.end(), [&](std::string_view row) {
      const auto fields = PlainFields(row, layout);
      return !fields.empty() && CountQuoted(fields) == fields.size();
    });
  }

  bool HasQuoted(const SplitRules& layout) const {
    return std::ranges::any_of(
        rows_, [&](std::string_view row) { return CountQuoted(PlainFields(row, layout)) > 0; });
  }

  /// Whether the layout does not take the words of a text ("Plate 3") for fields: there are more than two
  /// columns, and one of them is of numbers.
  bool IsMoreThanWords(const SplitRules& layout) const {
    if (columns_ < 3) return false;
    std::vector<std::size_t> rowsWithNumber(columns_);
    for (const std::string_view row : rows_) {
      const auto fields = PlainFields(row, layout);
      for (std::size_t index = 0; index < std::min(fields.size(), columns_); ++index)
        rowsWithNumber[index] += !fields[index].empty() && fields[index][0] >= '0' && fields[index][0] <= '9';
    }
    return std::find(rowsWithNumber.begin(), rowsWithNumber.end(), Size()) != rowsWithNumber.end();
  }

  /// Whether the qualifier is there, and around fields rather than in texts as an apostrophe is, in the rows
  /// that the other layout fails.
  bool Encloses(const SplitRules& layout, const SplitRules& than) const {
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
  bool IsBetter(const SplitRules& layout, const SplitRules& than) const {
    return columns_ > 1 && Filled(layout) == Size() && Filled(than) < Size() && SplitsHeader(layout);
  }

  /// How many fields the layout gives, as words that follow "there would be".
  std::string WouldBe(const SplitRules& layout) const {
    return std::to_string(Filled(layout) == Size() ? columns_ : UsualWidth(layout).fields);
  }

 private:
  /// A comma in every row may belong to texts; one that parts the header as well does not.
  bool SplitsHeader(const SplitRules& layout) const {
    return Fills(header_, layout, columns_) ||
           PlainFields(header_, layout).size() == UsualWidth(layout).fields;
  }

  std::string_view header_;
  const std::vector<std::string_view>& rows_;
  std::size_t columns_;
};

std::string Found(const Sample& sample, const SplitRules& now) {
  const Width usual = sample.UsualWidth(now);
  return Counted(usual.fields, "field") + " found in " + std::to_string(usual.rows) + " of " +
         Counted(sample.Size(), "row");
}

LayoutGuess GuessDelimiter(const Sample& sample, const SplitRules& now, bool isCsv) {
  for (const Candidate& candidate : kCandidates) {
    if (now.delimiters.find(candidate.delimiter) != std::string::npos) continue;
    const SplitRules other{std::string(1, candidate.delimiter), now.qualifier, candidate.treatAsOne};
    if (!sample.IsFarBetter(other, now) && !sample.IsFirstToSplit(other, now)) continue;
    if (candidate.delimiter == ' ' && !sample.IsMoreThanWords(other)) continue;
    std::string message =
        Found(sample, now) + "; with " + candidate.shown + " there would be " + sample.WouldBe(other);
    message += isCsv ? ". A .csv file always has commas: name the file .txt and use a format with "
                     : ". Use a format with ";
    return {"suggest-delimiter", message + "the delimiter " + candidate.advice,
            isCsv ? std::nullopt : std::optional(other)};
  }
  return {};
}

LayoutGuess GuessWrapping(const Sample& sample, const SplitRules& now) {
  if (now.qualifier == kSingleQuote || !sample.IsQuoted(now)) return {};
  return {"suggest-qualifier", "every field is between single quotes, which the format does not name",
          SplitRules{now.delimiters, kSingleQuote, now.treatAsOne}};
}

LayoutGuess GuessQualifier(const Sample& sample, const SplitRules& now) {
  constexpr std::pair<char, const char*> kQualifiers[] = {
      {'"', "double quotes"}, {kSingleQuote, "single quotes"}, {'\0', "no text qualifier"}};
  for (const auto& [qualifier, name] : kQualifiers) {
    const SplitRules other{now.delimiters, qualifier, now.treatAsOne};
    if (qualifier == now.qualifier || !sample.IsBetter(other, now)) continue;
    // Without a qualifier, single quotes would become a part of the texts.
    const bool isCertain = qualifier == '\0' ? !sample.HasQuoted(other) : sample.Encloses(other, now);
    if (isCertain)
      return {"suggest-qualifier",
              Found(sample, now) + "; with " + name + " in the format there would be " +
                  sample.WouldBe(other) + " in all",
              other};
  }
  return {};
}

LayoutGuess GuessTreatAsOne(const Sample& sample, const SplitRules& now) {
  SplitRules other = now;
  other.treatAsOne = !now.treatAsOne;
  if (!sample.IsBetter(other, now)) return {};
  return {"suggest-treat-as-one",
          Found(sample, now) + "; with consecutive delimiters counted " +
              (other.treatAsOne ? "as one (TreatAsOne=\"true\" in the format file)"
                                : "one by one (TreatAsOne=\"0\" in the format file)") +
              " there would be " + sample.WouldBe(other) + " in all",
          other};
}

bool IsNumber(std::string_view field) {
  return !field.empty() && field.find_first_not_of("0123456789.,-+ ") == field.npos;
}

std::size_t CountMeanings(const Headings& headings, const std::vector<std::string>& fields) {
  const auto keywords = headings.KeywordsFor(fields);
  return keywords.size() - static_cast<std::size_t>(std::ranges::count(keywords, kIgnore));
}

/// How much speaks for a layout; what comes first counts for more.
struct Weight {
  std::size_t meanings = 0;  // headings that are of the kind
  std::size_t rows = 0;      // below the headings and of their number
  std::size_t quoted = 0;    // of these, with a field between single quotes that are the qualifier
  std::size_t fields = 0;

  auto operator<=>(const Weight& other) const = default;
};

struct HeaderRow {
  Weight weight;
  std::size_t line = 0;
  std::vector<std::string> fields;
};

/// The line with the most headings of the kind, else the first of the usual width that is all texts.
HeaderRow FindHeaderRow(const std::vector<std::string_view>& lines, const Headings& headings,
                        const SplitRules& layout) {
  const std::size_t width = UsualWidth(lines, layout).fields;
  HeaderRow row;
  bool isFound = false;  // a line of the usual width
  for (std::size_t index = 0; index < std::min(lines.size(), kHeaderSearch); ++index) {
    std::vector<std::string> fields = PlainFields(lines[index], layout);
    const std::size_t meanings = CountMeanings(headings, fields);
    const bool isFirst =
        !isFound && fields.size() == width && std::none_of(fields.begin(), fields.end(), IsNumber);
    if (meanings <= row.weight.meanings && !(isFirst && row.weight.meanings == 0)) continue;
    isFound = isFound || isFirst;
    row = {{meanings}, index, std::move(fields)};
  }
  row.weight.fields = row.fields.size();
  SplitRules plain = layout;
  plain.qualifier = '\0';
  for (std::size_t index = row.line + 1; index < lines.size() && row.fields.size() > 1; ++index) {
    if (!Fills(lines[index], layout, row.fields.size())) continue;
    ++row.weight.rows;
    row.weight.quoted +=
        layout.qualifier == kSingleQuote && CountQuoted(PlainFields(lines[index], plain)) > 0;
  }
  return row;
}

}  // namespace

std::vector<std::string_view> SampleLines(std::string_view bytes, bool isWhole) {
  if (!isWhole) bytes = bytes.substr(0, bytes.rfind('\n') + 1);
  std::vector<std::string_view> lines;
  while (!bytes.empty() && lines.size() < kSampleLines) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return lines;
}

SplitRules LayoutOf(const OptionForm& form, bool isCsv) {
  return isCsv ? SplitRules::Csv()
               : SplitRulesOf(form.Delimiters, form.OtherDelimiters, form.Qualifier, form.TreatAsOne);
}

std::vector<std::string> PlainFields(std::string_view line, const SplitRules& layout) {
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

bool Fills(std::string_view line, const SplitRules& layout, std::size_t columns) {
  const auto fields = PlainFields(line, layout);
  const bool endsOpen = !line.empty() && layout.delimiters.find(line.back()) != std::string::npos;
  const auto last =
      std::find_if(fields.rbegin(), fields.rend(), [](const auto& field) { return !field.empty(); });
  return fields.size() + endsOpen >= columns && static_cast<std::size_t>(fields.rend() - last) <= columns;
}

Width UsualWidth(const std::vector<std::string_view>& rows, const SplitRules& layout) {
  std::map<std::size_t, std::size_t> rowsOfWidth;
  for (const std::string_view row : rows) ++rowsOfWidth[PlainFields(row, layout).size()];
  Width usual;
  for (const auto& [fields, count] : rowsOfWidth)
    if (count >= usual.rows) usual = {fields, count};
  return usual;
}

LayoutGuess GuessLayout(LayoutSample start, const OptionForm& form, bool isCsv) {
  const SplitRules now = LayoutOf(form, isCsv);
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

std::optional<std::size_t> GuessHeaderRow(const std::vector<std::vector<std::string>>& rows,
                                          std::size_t header, const RecordType& type) {
  constexpr std::size_t kSure = 3;
  const Headings headings(type);
  std::size_t best = header, most = 0;
  for (std::size_t index = 0; index < std::min(rows.size(), kHeaderSearch); ++index) {
    const std::size_t meanings = CountMeanings(headings, rows[index]);
    if (meanings > most) most = meanings, best = index;
  }
  const std::size_t here = header < rows.size() ? CountMeanings(headings, rows[header]) : 0;
  if (most < kSure || most < 2 * here) return std::nullopt;
  return best;
}

LayoutProposal ProposeLayout(const std::vector<std::string_view>& lines, const RecordType& type) {
  const std::vector<std::string_view> sample(
      lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), kProposalLines)));
  const Headings headings(type);
  LayoutProposal proposal;
  Weight best;
  for (const Candidate& candidate : kCandidates) {
    // Blanks part the words of texts too, and a format file cannot keep TreatAsOne.
    if (candidate.treatAsOne || (candidate.delimiter == ' ' && best.fields > 0)) continue;
    for (const char qualifier : {'"', '\0', kSingleQuote}) {
      const SplitRules layout{std::string(1, candidate.delimiter), qualifier};
      HeaderRow row = FindHeaderRow(sample, headings, layout);
      if (row.fields.size() < 2 || row.weight <= best) continue;
      best = row.weight;
      proposal = {candidate.delimiter, qualifier, row.line + 1, std::move(row.fields)};
    }
  }
  if (proposal.delimiter == '\0' && !lines.empty()) proposal.headings = PlainFields(lines.front(), {"", '"'});
  return proposal;
}

}  // namespace qv
