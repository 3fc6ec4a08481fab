#include "cli/check/Suggestions.h"

#include "cli/check/EncodingGuess.h"
#include "format/FormatColumns.h"
#include "guess/Headings.h"
#include "guess/KeywordGuess.h"
#include "guess/LayoutGuess.h"
#include "platform/CodePage.h"
#include "text/Ascii.h"
#include "text/Numbers.h"
#include "text/Phrases.h"
#include "text/Utf8.h"

#include <algorithm>
#include <set>

namespace qv {
namespace {

constexpr std::size_t kHeaderSearch = 50;

/// The lines of a file's start, without a byte-order mark.
std::vector<std::string_view> LinesOf(std::string_view bytes) {
  const bool isWhole = bytes.size() < DataStart::kSize;
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  return SampleLines(bytes, isWhole);
}

Parsed<double> WithComma(std::string_view text, bool isWhole) {
  std::string pointed;
  AppendWithPoint(pointed, text, isWhole);
  if (!isWhole) return ParseReal(pointed);
  const Parsed<int> whole = ParseInt(pointed);
  return {static_cast<double>(whole.value), whole.fault};
}

/// Files that are no text of this kind at all, by how they start.
struct FileShape {
  std::string_view start;
  const char* message;
};

using namespace std::string_view_literals;

constexpr const char* kWebPage = "this looks like a web page or XML; save the list as text or CSV";

constexpr FileShape kShapes[] = {
    {"\x1F\x8B"sv, "this is a compressed file (gzip); unpack it first"},
    {"7z\xBC\xAF"sv, "this is an archive (7z); unpack it first"},
    {"Rar!"sv, "this is an archive (RAR); unpack it first"},
    {"\x89PNG"sv, "this is a picture (PNG); save the list as text or CSV where it comes from"},
    {"PK\x03\x04"sv,
     "this is a workbook or an archive under the name of a text file; save it as text or CSV where it comes "
     "from"},
    {"\xD0\xCF\x11\xE0"sv,
     "this is a workbook under the name of a text file; name it .xls, or save it as text or CSV"},
    {"%PDF"sv, "this is a PDF document; save the list as text or CSV where it comes from"},
    {"<?xml"sv, kWebPage},
    {"<!doctype"sv, kWebPage},
    {"<html"sv, kWebPage},
    {"<table"sv, kWebPage},
    {"{\\rtf"sv, "this is a text with layout (RTF); save it as plain text"},
};

std::string Choice(const std::vector<std::string>& encodings) {
  std::string choice;
  for (const std::string& name : encodings)
    choice.append(choice.empty() ? "" : &name == &encodings.back() ? " or " : ", ").append(name);
  return choice.empty() ? choice : "; name the file's encoding with --encoding, which may be " + choice;
}

bool HasLoss(std::string_view text) { return text.find(kReplacementCharacter) != text.npos; }

/// Whether bytes of the line were taken together to characters, as they hardly are by accident.
bool IsSurelyText(const std::string& text, std::string_view line) {
  const auto characters = std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
  return !HasLoss(text) && static_cast<std::size_t>(characters) < line.size();
}

std::optional<Utf8Diagnostic> EncodingSuggestion(const Utf8Path& file,
                                                 const std::vector<std::string_view>& lines,
                                                 const TextCoding& coding, bool onlySure = false) {
  std::int64_t first = 0, firstBad = 0;  // lines that are not ASCII, and that do not decode
  bool areOthersGood = false;
  for (std::size_t index = 0; index < lines.size(); ++index) {
    const std::string_view line = lines[index];
    if (IsAscii(line) || HasLoss(line)) continue;
    const auto number = static_cast<std::int64_t>(index) + 1;
    const std::string text = coding.Decode(line);
    if (first == 0) first = number;
    if (firstBad == 0 && HasLoss(text)) firstBad = number;
    areOthersGood = areOthersGood || IsSurelyText(text, line);
  }
  if (first == 0) return std::nullopt;
  const EncodingGuess guess = GuessEncoding(lines, coding);
  const std::string bad = "the line holds bytes that are not " + coding.Name();
  const auto suggest = [&](std::int64_t line, const std::string& message) {
    return Utf8Diagnostic{file, line, "", "suggest-encoding", "", message};
  };
  if (guess.isSure)
    return suggest(firstBad > 0 ? firstBad : first,
                   (firstBad > 0 ? bad : "the texts are of another encoding") +
                       "; read the file with --encoding " + guess.names.front());
  if (firstBad == 0 || onlySure) return std::nullopt;
  return suggest(firstBad, bad + (areOthersGood ? ", while other lines are" : Choice(guess.names)));
}

/// A column of the format.
struct Column {
  std::string keyword;
  bool isIgnored = false;
  bool wantsNumber = false;
  bool wantsWhole = false;

  bool IsHeaded(std::string_view heading) const { return !isIgnored && EqualsIgnoringCase(keyword, heading); }
};

/// How a column's cells look.
struct ColumnLook {
  std::size_t filled = 0, numbers = 0, startingWithNumber = 0;
};

std::vector<Column> ColumnsIn(const DataFile& file) {
  std::vector<Column> columns;
  for (FormatColumn& column : ColumnsOf(file.form)) {
    const RecordField* const field = FindFieldOfColumn(RecordTypeOf(file.kind), column.keyword);
    const bool wantsNumber =
        field != nullptr && std::ranges::any_of(field->columns, [](const FieldColumn& read) {
          return read.readAs == CellForm::Whole || read.readAs == CellForm::Real;
        });
    const bool isIgnored = column.keyword == kIgnore;
    columns.push_back(
        {std::move(column.keyword), isIgnored, wantsNumber, wantsNumber && field->type == FieldType::Int});
  }
  return columns;
}

std::vector<ColumnLook> LooksOf(const std::vector<std::string_view>& rows, const SplitRules& layout,
                                std::size_t columns) {
  std::vector<ColumnLook> looks(columns);
  for (const std::string_view row : rows) {
    const auto fields = PlainFields(row, layout);
    for (std::size_t index = 0; index < std::min(fields.size(), columns); ++index) {
      const NumberFault fault = ParseReal(fields[index]).fault;
      looks[index].filled += fault != NumberFault::Empty;
      looks[index].numbers += fault == NumberFault::None;
      looks[index].startingWithNumber += fault == NumberFault::None || fault == NumberFault::TrailingText;
    }
  }
  return looks;
}

/// Column numbers instead of names are a header too.
bool CountsColumns(const std::vector<std::string>& headers) {
  for (std::size_t index = 1; index < headers.size(); ++index)
    if (ParseInt(headers[index]).value != ParseInt(headers[0]).value + static_cast<int>(index)) return false;
  return true;
}

class Survey {
 public:
  Survey(const DataFile& file, const DataStart& start, const TextCoding& coding)
      : file_(file),
        start_(start),
        coding_(coding),
        type_(RecordTypeOf(file.kind)),
        layout_(LayoutOf(file.form, IsCsv(file.path))),
        columns_(ColumnsIn(file)),
        header_(static_cast<std::size_t>(std::max(file.form.StartLine, 1)) - 1) {}

  std::vector<Utf8Diagnostic> Take(const RowFindings& findings) {
    LookAtKeywords();
    if (IsWorkbook(file_.path) || IsStream(file_.path)) return std::move(found_);
    LookAtFormat();
    LookAtFile(findings);
    return std::move(found_);
  }

 private:
  void Add(std::int64_t line, std::string column, std::string code, std::string text, std::string message) {
    found_.push_back(
        {file_.path, line, std::move(column), std::move(code), std::move(text), std::move(message)});
  }

  void LookAtKeywords() {
    std::vector<std::string> keywords;
    for (const Column& column : columns_)
      if (!column.isIgnored) keywords.push_back(column.keyword);
    if (const std::string_view kind = GuessKind(type_, keywords); !kind.empty()) {
      Add(0, "", "suggest-kind", file_.form.Name,
          "the format \"" + ToUtf8(file_.form.Name) + "\" has the columns of another kind; --kind " +
              std::string(kind) + "?");
      return;
    }
    for (const auto& [keyword, meant] : GuessKeywords(type_, keywords))
      Add(0, ToUtf8(keyword), "suggest-keyword", ToUtf8(keyword),
          "column " + ToUtf8(keyword) + " is not a keyword; " + meant + "?");
  }

  void LookAtFormat() {
    storedName_ = start_.FormatName(coding_);
    if (!storedName_.empty() && storedName_ != file_.form.Name)
      Add(1, "", "suggest-format", ToUtf8(storedName_),
          "the file names the format \"" + ToUtf8(storedName_) + "\"" +
              (file_.formats.Lookup(storedName_) != nullptr ? ""
                                                            : ", which the configuration does not hold") +
              "; it was read by \"" + ToUtf8(file_.form.Name) + "\"");
    if (file_.formats.HasSavedFlag(file_.form) && !IsCsv(file_.path))
      Add(0, "TreatAsOne", "suggest-treat-as-one", "1",
          "the format \"" + ToUtf8(file_.form.Name) + "\" in " + file_.formats.Path() +
              " says TreatAsOne=\"1\", which is read as off; to count consecutive delimiters as one, "
              "put \"true\" there by hand");
  }

  void LookAtFile(const RowFindings& findings) {
    const std::string& bytes = start_.Bytes();
    if (auto shape = OtherShapeOf(start_)) {
      found_.push_back(std::move(*shape));
      return;
    }
    const std::vector<std::string_view> lines = LinesOf(bytes);
    if (auto suggestion = EncodingSuggestion(file_.path, lines, coding_))
      found_.push_back(std::move(*suggestion));
    const bool isRemarkedOn = !lines.empty() && header_ >= lines.size();
    if (findings.rows == 0 && !isRemarkedOn)
      Add(0, "", "suggest-rows", "",
          bytes.empty() ? "the file is empty"
                        : "the file has no row below line " + std::to_string(header_ + 1) +
                              ", where the format expects the header row");
    if (header_ + 1 >= lines.size()) return;
    const std::vector<std::string_view> rows(lines.begin() + static_cast<std::ptrdiff_t>(header_) + 1,
                                             lines.end());
    const bool isDirective =
        (header_ == 0 && !storedName_.empty()) || StartsWithIgnoringCase(lines[header_], "sep=");
    const LayoutGuess guess = GuessLayout(
        {lines[header_ + isDirective], rows, columns_.size(), findings.hasMisfits || columns_.empty()},
        file_.form, IsCsv(file_.path));
    const std::size_t before = found_.size();
    if (!guess.code.empty())
      Add(0, "", guess.code, "", guess.message);
    else
      LookAtHeader(lines, UsualWidth(rows, layout_).fields);
    if (guess.code.empty() && found_.size() == before)
      LookAtCells(PlainFields(lines[header_], layout_), rows);
    if (guess.code.empty()) LookAtCommas(rows, findings.trailingTexts);
  }

  /// How many columns have their own keyword as heading in this line.
  std::size_t Agreeing(std::string_view line) const {
    const auto headers = PlainFields(line, layout_);
    std::size_t agreeing = 0;
    for (std::size_t index = 0; index < std::min(headers.size(), columns_.size()); ++index)
      agreeing += columns_[index].IsHeaded(headers[index]);
    return agreeing;
  }

  void LookAtHeader(const std::vector<std::string_view>& lines, std::size_t width) {
    const auto wanted = static_cast<std::size_t>(std::ranges::count(columns_, false, &Column::isIgnored));
    if (wanted < 2 || Agreeing(lines[header_]) == wanted) return;
    for (std::size_t index = 0; index < std::min(lines.size(), kHeaderSearch); ++index)
      if (Agreeing(lines[index]) == wanted) {
        Add(static_cast<std::int64_t>(index) + 1, "", "suggest-header-line", "",
            "the header row is here, but the format expects it in line " + std::to_string(header_ + 1));
        return;
      }
    if (header_ == 0 && !storedName_.empty())
      Add(1, "", "suggest-header-line", "",
          "the line that names the file's format is taken for the header row, as the format's start line is "
          "1");
    else if (const auto headers = PlainFields(lines[header_], layout_);
             headers.size() == width || headers.size() == columns_.size())
      LookAtOrder(headers);  // one more or fewer may be a header that holds a delimiter
  }

  void LookAtOrder(const std::vector<std::string>& headers) {
    if (LookAtMeanings(headers)) return;
    for (std::size_t index = 0; index < std::min(headers.size(), columns_.size()); ++index) {
      if (columns_[index].isIgnored || columns_[index].IsHeaded(headers[index])) continue;
      if (std::ranges::any_of(columns_,
                              [&](const Column& column) { return column.IsHeaded(headers[index]); }))
        AddMisplaced(index, coding_.Decode(headers[index]), "");
    }
  }

  void AddMisplaced(std::size_t column, const std::string& heading, const std::string& seeming) {
    const std::string keyword = ToUtf8(columns_[column].keyword);
    Add(static_cast<std::int64_t>(header_) + 1, keyword, "suggest-column-order", heading,
        "column " + std::to_string(column + 1) + " is headed \"" + heading + "\"" + seeming +
            "; the format reads it as " + keyword);
  }

  /// Headings that are everyday names of other columns of the format. As one word may mean anything, they
  /// must have changed places among themselves.
  bool LookAtMeanings(const std::vector<std::string>& headers) {
    const std::size_t size = std::min(headers.size(), columns_.size());
    const Headings headings(type_);
    std::map<std::size_t, std::size_t> places;  // of columns by their headings
    std::set<std::size_t> taken;
    for (std::size_t index = 0; index < size; ++index) {
      const std::string meaning = headings.KeywordsFor({coding_.Decode(headers[index])}).front();
      if (meaning == kIgnore || columns_[index].isIgnored) continue;
      const auto own =
          std::ranges::find_if(columns_, [&](const Column& column) { return column.IsHeaded(meaning); });
      const auto place = static_cast<std::size_t>(own - columns_.begin());
      if (place >= size) continue;
      if (!taken.insert(place).second) return false;
      if (place != index) places.emplace(index, place);
    }
    const auto isTaken = [&](const auto& entry) { return places.contains(entry.second); };
    if (places.empty() || !std::ranges::all_of(places, isTaken)) return false;
    for (const auto& [index, place] : places) {
      const std::string heading = coding_.Decode(headers[index]), meaning = ToUtf8(columns_[place].keyword);
      AddMisplaced(index, heading,
                   EqualsIgnoringCase(heading, meaning) ? "" : ", which seems to be " + meaning);
    }
    return true;
  }

  /// Where a decimal comma would make a number of all that has text after it, and no other of another cell.
  void LookAtCommas(const std::vector<std::string_view>& rows,
                    const std::map<std::string, TrailingTexts>& trailingTexts) {
    if (file_.hasDecimalComma) return;
    std::vector<std::size_t> better;
    for (std::size_t index = 0; index < columns_.size(); ++index) {
      const auto texts = trailingTexts.find(ToUtf8(columns_[index].keyword));
      if (texts != trailingTexts.end() &&
          (columns_[index].wantsWhole ? texts->second.areWhole : texts->second.areReal))
        better.push_back(index);
    }
    if (better.empty()) return;
    for (const std::string_view row : rows) {
      const auto fields = PlainFields(row, layout_);
      for (std::size_t index = 0; index < std::min(fields.size(), columns_.size()); ++index) {
        if (!columns_[index].wantsNumber || ParseReal(fields[index]).fault != NumberFault::None) continue;
        const Parsed<double> now = ParseReal(fields[index]),
                             then = WithComma(fields[index], columns_[index].wantsWhole);
        const bool isBetter = std::find(better.begin(), better.end(), index) != better.end();
        if (then.fault != NumberFault::None || (!isBetter && then.value != now.value)) return;
      }
    }
    for (const std::size_t index : better) {
      const std::string column = ToUtf8(columns_[index].keyword);
      Add(0, column, "suggest-decimal-comma", "",
          "with --decimal-comma every cell with text after the number, " +
              Counted(trailingTexts.at(column).count, "cell") + ", would be a number");
    }
  }

  /// Whether a header row's cells in columns of numbers are like those of the rows, a number at least.
  bool IsData(const std::vector<std::string>& headers, const std::vector<ColumnLook>& looks) const {
    bool hasNumber = false;
    for (std::size_t index = 0; index < std::min(headers.size(), columns_.size()); ++index) {
      const ColumnLook& look = looks[index];
      if (!columns_[index].wantsNumber || look.filled == 0) continue;
      const NumberFault fault = ParseReal(headers[index]).fault;
      const auto isUsual = [&](std::size_t count) { return 20 * count >= 19 * look.filled; };
      hasNumber = hasNumber || (fault == NumberFault::None && isUsual(look.numbers));
      const bool isLikeRows =
          fault == NumberFault::TrailingText && isUsual(look.startingWithNumber - look.numbers);
      if (fault != NumberFault::None && fault != NumberFault::Empty && !isLikeRows) return false;
    }
    return hasNumber && !CountsColumns(headers);
  }

  /// What the cells say: a header row that is a row of data, and a column without numbers that wants them.
  void LookAtCells(const std::vector<std::string>& headers, const std::vector<std::string_view>& rows) {
    const auto looks = LooksOf(rows, layout_, columns_.size());
    const auto line = static_cast<std::int64_t>(header_) + 1;
    if (IsData(headers, looks)) {
      Add(line, "", "suggest-header-line", "",
          "this line, which the format takes for the header row, looks like the rows below it; a row of data "
          "here is not read, so put a header row above it");
      return;
    }
    const auto isMost = [&](const ColumnLook& look, std::size_t count) {
      return look.filled >= 3 && 10 * count >= 9 * look.filled && 2 * look.filled >= rows.size();
    };
    std::size_t holder = 0;  // the first column that holds numbers and wants none
    while (holder < columns_.size() && (columns_[holder].isIgnored || columns_[holder].wantsNumber ||
                                        !isMost(looks[holder], looks[holder].numbers)))
      ++holder;
    if (holder == columns_.size()) return;
    for (std::size_t index = 0; index < columns_.size(); ++index) {
      const std::string keyword = ToUtf8(columns_[index].keyword);
      if (columns_[index].wantsNumber &&
          isMost(looks[index], looks[index].filled - looks[index].startingWithNumber))
        Add(line, keyword, "suggest-column-order", "",
            "column " + std::to_string(index + 1) + " is read as " + keyword +
                " and holds no number in most rows, but column " + std::to_string(holder + 1) +
                ", which is read as " + ToUtf8(columns_[holder].keyword) +
                ", does; compare the format's columns with the header row");
    }
  }

  const DataFile& file_;
  const DataStart& start_;
  const TextCoding& coding_;
  const RecordType& type_;
  const SplitRules layout_;
  const std::vector<Column> columns_;
  const std::size_t header_;  // the header row's place among the lines
  std::string storedName_;    // of a format, in the file's first line
  std::vector<Utf8Diagnostic> found_;
};

}  // namespace

std::optional<Utf8Diagnostic> OtherShapeOf(const DataStart& start) {
  const std::string& bytes = start.Bytes();
  const auto suggest = [&](const char* code, const std::string& message) {
    return Utf8Diagnostic{start.File(), 0, "", code, "", message};
  };
  for (const FileShape& shape : kShapes)
    if (StartsWithIgnoringCase(bytes, shape.start)) return suggest("suggest-file-type", shape.message);
  if (const std::string_view wide = WideEncodingOf(bytes); !wide.empty())
    return suggest("suggest-encoding",
                   "the file is " + std::string(wide) + "; save it as UTF-8 or in the system's code page");
  const auto has = [&](char c) { return bytes.find(c) != bytes.npos; };
  if (has('\r') && !has('\n') && bytes.find('\r') + 1 < bytes.size())
    return suggest("suggest-line-ends",
                   "the lines end with CR alone, so the file is one single line; save it with LF or CR LF");
  return std::nullopt;
}

std::optional<Utf8Diagnostic> SureEncodingOf(const DataStart& start, const TextCoding& coding) {
  const std::string& bytes = start.Bytes();
  if (IsAscii(bytes) || OtherShapeOf(start)) return std::nullopt;
  return EncodingSuggestion(start.File(), LinesOf(bytes), coding, true);
}

void TrailingTexts::Add(std::string_view text) {
  ++count;
  areReal = areReal && WithComma(text, false).fault == NumberFault::None;
  areWhole = areWhole && WithComma(text, true).fault == NumberFault::None;
}

std::vector<Utf8Diagnostic> Suggestions(const DataFile& file, const DataStart& start,
                                        const RowFindings& findings, const TextCoding& coding) {
  return Survey(file, start, coding).Take(findings);
}

}  // namespace qv
