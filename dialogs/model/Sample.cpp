#include "dialogs/model/Sample.h"

#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "engines/columns/RecordFields.h"
#include "format/FormatColumns.h"
#include "guess/Headings.h"
#include "guess/LayoutGuess.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "platform/Handlers.h"
#include "text/Ascii.h"
#include "text/Numbers.h"
#include "text/Phrases.h"
#include "text/Utf8.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace qv {
namespace {

constexpr std::size_t kMaxRows = 50;
constexpr std::size_t kMaxColumns = 200;
constexpr std::size_t kSureHeadings = 3;
constexpr std::size_t kMaxGuessed = 200;  // lines that are tried with other settings

constexpr std::string_view kSampleExtensions[] = {".xls", ".csv", ".txt"};

// Exactly so, in small letters.
bool HasSampleExtension(const std::string& path) {
  const std::size_t name = path.find_last_of("/\\") + 1;
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot < name) return false;
  const std::string_view extension = std::string_view(path).substr(dot);
  return std::find(std::begin(kSampleExtensions), std::end(kSampleExtensions), extension) !=
         std::end(kSampleExtensions);
}

std::string TroubleWith(const std::string& path) {
  if (path.empty()) return "no sample file";
  if (!HasSampleExtension(path)) return "unknown type of sample";
  if (!Files().Exists(path)) return "sample file missing";
  return LeadsToStream(path) ? "the sample is a pipe or device" : "";
}

/// Keeps what the library remarks on, instead of the host's handlers.
class RemarkLog {
 public:
  const std::vector<Diagnostic>& All() const { return remarks_; }
  void KeepFirst(std::size_t count) { remarks_.resize(count); }

  /// Whether a row does not fit the format's columns.
  bool HasMisfits() const {
    return std::any_of(remarks_.begin(), remarks_.end(), [](const Diagnostic& remark) {
      return remark.code == DiagnosticCode::RowTooShort || remark.code == DiagnosticCode::RowTooLong ||
             remark.code == DiagnosticCode::OpenQualifier;
    });
  }

 private:
  static void Keep(const Diagnostic& remark, void* self) {
    static_cast<RemarkLog*>(self)->remarks_.push_back(remark);
  }

  std::vector<Diagnostic> remarks_;
  const ThreadHandlers handlers_{Keep, nullptr, nullptr, this};
};

/// What a list of these columns is: the kind that reads most of them, parts before others.
const RecordType& TypeOf(const std::vector<FormatColumn>& columns, bool isWorkbook) {
  const auto readBy = [&](RecordKind kind) {
    if (!IsImported(kind) || (isWorkbook && !IsExported(kind))) return std::ptrdiff_t{-1};
    return std::count_if(columns.begin(), columns.end(), [&](const FormatColumn& column) {
      return FindFieldOfColumn(RecordTypeOf(kind), column.keyword) != nullptr;
    });
  };
  RecordKind best = RecordKind::Parts;
  for (std::size_t kind = 0; kind < kRecordKindCount; ++kind)
    if (readBy(static_cast<RecordKind>(kind)) > readBy(best)) best = static_cast<RecordKind>(kind);
  return RecordTypeOf(best);
}

RecordKind KindOf(const RecordType& type) { return static_cast<RecordKind>(&type - RecordTypes().data()); }

/// Whether the bytes are in another code page than the system's, which does not have all of them, makes
/// control characters of some, or are UTF-8 in a system of another.
bool IsForeign(std::string_view bytes) {
  if (IsAscii(bytes)) return false;
  const std::string text = ToUtf8(bytes);
  for (std::string_view rest = text; !rest.empty();) {
    const Utf8Character next = DecodeUtf8(rest);
    if (next.code == 0xFFFD || (next.code >= 0x80 && next.code < 0xA0)) return true;
    rest.remove_prefix(next.length);
  }
  return text != bytes && DecodeStrictly(bytes, "utf-8").whole;
}

/// Whether the cells with text after their number would all be numbers with a decimal comma.
bool HasDecimalCommas(const std::vector<Diagnostic>& remarks) {
  std::size_t found = 0;
  for (const Diagnostic& remark : remarks) {
    if (remark.code != DiagnosticCode::TrailingText) continue;
    std::string number;
    AppendWithPoint(number, remark.text, false);
    if (ParseReal(number).fault != NumberFault::None) return false;
    ++found;
  }
  return found > 0;
}

/// What no setting of a format can mend.
std::string NotesOn(std::string_view bytes, const std::vector<Diagnostic>& remarks) {
  std::string notes;
  if (IsForeign(bytes))
    notes +=
        "\nThe sample is not in this system's code page: letters beyond A to Z come out wrong. Save it in "
        "that, or let the import know its encoding.";
  if (HasDecimalCommas(remarks))
    notes +=
        "\nThe numbers seem to have a decimal comma, which is a setting of the import, not of the format.";
  return notes;
}

/// Makes a preview, row by row.
class PreviewMaker {
 public:
  PreviewMaker(const std::vector<FormatColumn>& columns, const RecordType& type) {
    for (const FormatColumn& column : columns) {
      if (preview_.columns.size() == kMaxColumns) break;
      const RecordField* const field = FindFieldOfColumn(type, column.keyword);
      preview_.columns.push_back({column.keyword, field != nullptr && field->IsRead(), {}});
    }
  }

  void AddHeader(std::int64_t line, const std::vector<std::string>& headers) {
    AddRow(line, Preview::RowState::Header, {headers.begin(), headers.end()});
  }

  void Add(const SourceRow& row) {
    records_ += row.record != nullptr;
    ++rows_;
    AddRow(row.line, row.record != nullptr ? Preview::RowState::Record : Preview::RowState::LeftOut,
           {row.fields.begin(), row.fields.end()});
  }

  std::size_t Rows() const { return rows_; }

  Preview Finish(const std::vector<Diagnostic>& remarks, bool goesOn) {
    std::string& summary = preview_.summary;
    if (goesOn) summary = "First ";
    summary +=
        Counted(rows_, "row") + ", " + Counted(records_, "record") + ", " + Counted(remarks.size(), "remark");
    for (const Diagnostic& remark : remarks) Place(remark);
    return std::move(preview_);
  }

 private:
  void AddRow(std::int64_t line, Preview::RowState state, std::vector<std::string_view> fields) {
    if (fields.size() > kMaxColumns) fields.resize(kMaxColumns);
    if (fields.size() > preview_.columns.size()) preview_.columns.resize(fields.size());
    Preview::Row& row = preview_.rows.emplace_back(Preview::Row{line, state, {}, {}});
    for (const std::string_view field : fields) row.cells.push_back({Brief(field), {}});
  }

  // At its cell, its column or its row; what is about none of them follows the summary.
  void Place(const Diagnostic& remark) {
    const auto column = std::find_if(
        preview_.columns.begin(), preview_.columns.end(),
        [&](const auto& listed) { return !remark.column.empty() && listed.head == remark.column; });
    const auto row = std::find_if(preview_.rows.begin(), preview_.rows.end(),
                                  [&](const auto& listed) { return listed.line == remark.line; });
    const bool isOfRow = row != preview_.rows.end();
    const auto index = static_cast<std::size_t>(column - preview_.columns.begin());
    if (isOfRow && index < row->cells.size() && row->state != Preview::RowState::Header)
      AddLine(row->cells[index].remark, remark.message);
    else if (column != preview_.columns.end())
      AddLine(column->remark, remark.message);
    else if (isOfRow)
      AddLine(row->remark, remark.message);
    else
      AddLine(preview_.summary, remark.message);
  }

  static void AddLine(std::string& text, const std::string& line) {
    text.append(text.empty() ? "" : "\n").append(line);
  }

  Preview preview_;
  std::size_t rows_ = 0;
  std::size_t records_ = 0;
};

}  // namespace

void Sample::Read() {
  if (!isRead_) Refresh();
}

void Sample::Refresh() {
  isRead_ = true;
  start_.reset();
  trouble_ = TroubleWith(path_);
  if (!trouble_.empty()) return;
  const RemarkLog log;
  start_ = ReadSample(path_, failure_);
  failure_ =
      "the sample file " + (log.All().empty() ? "cannot be read: " + failure_ : log.All().front().message);
}

std::vector<std::string> Sample::Headers(const OptionForm& form) const {
  if (start_ == nullptr) return {};
  const RemarkLog silent;
  const auto engine = CreateAssemblyEngine(path_.c_str());
  // The header row is the same for every kind.
  engine->KindFlags[static_cast<std::size_t>(RecordKind::Parts)] = true;
  const FileDiagnostics diagnostics = FileDiagnostics::Silent(path_.c_str());
  ApplyFormat(*engine, form, diagnostics);
  engine->Sample = start_;
  engine->ReadHeaderOnly = true;
  ImportRecords(*engine, RecordKind::Parts, diagnostics);
  return engine->HeaderFields.All();
}

bool Sample::IsWorkbook() const { return EndsWithIgnoringCase(path_, ".xls"); }

std::vector<std::string> Sample::ColumnsForHeaders(const OptionForm& form) const {
  std::vector<std::string> headings;
  for (const std::string& header : Headers(form)) headings.push_back(ToUtf8(header));
  std::vector<std::string> columns = ProposeColumns(TypeOf(ColumnsOf(form), IsWorkbook()), headings);
  const bool isAnyKnown =
      std::any_of(columns.begin(), columns.end(), [](const auto& column) { return column != kIgnore; });
  return isAnyKnown ? columns : std::vector<std::string>();
}

Sample::Trial Sample::Try(const OptionForm& form) const {
  Trial trial;
  trial.preview.summary = trouble_.empty() ? failure_ : trouble_;
  if (start_ == nullptr) return trial;

  const std::vector<FormatColumn> columns = ColumnsOf(form);
  const RecordType& type = TypeOf(columns, IsWorkbook());
  const RecordKind kind = KindOf(type);
  RemarkLog log;
  const auto engine = CreateAssemblyEngine(path_.c_str());
  engine->KindFlags[static_cast<std::size_t>(kind)] = true;
  engine->Sample = start_;
  const FileDiagnostics diagnostics(path_.c_str());
  ApplyFormat(*engine, form, diagnostics);
  const auto source = OpenRecords(*engine, kind, diagnostics);

  PreviewMaker maker(columns, type);
  if (source->LineNumber() > 0 && engine->HeaderFields.Size() > 0)
    maker.AddHeader(source->LineNumber(), engine->HeaderFields.All());
  SourceRow row;
  while (maker.Rows() < kMaxRows && source->NextRow(row)) maker.Add(row);
  const std::size_t remarks = log.All().size();
  const bool goesOn = source->NextRow(row) || !start_->isWhole;
  log.KeepFirst(remarks);
  trial.preview = maker.Finish(log.All(), goesOn);
  if (source->LineNumber() < form.StartLine && !start_->isWhole)
    trial.preview.summary = "Line " + std::to_string(form.StartLine) +
                            " is not in the start of the sample, which is all that is looked at.";
  trial.suggestion = SuggestionFor(form, type, log.HasMisfits() || columns.empty());
  trial.preview.suggestion = trial.suggestion.sentence + NotesOn(start_->bytes, log.All());
  if (trial.preview.suggestion.starts_with('\n')) trial.preview.suggestion.erase(0, 1);
  trial.preview.canApply = trial.suggestion.CanApply();
  return trial;
}

Suggestion Sample::SuggestionFor(const OptionForm& form, const RecordType& type, bool hasMisfits) const {
  std::vector<std::string_view> lines = SampleLines(start_->bytes, true);
  lines.resize(std::min(lines.size(), kMaxGuessed));
  if (ColumnsOf(form).empty())
    if (Suggestion found = LayoutForNewFormat(form, type, lines); found.CanApply()) return found;
  const auto header = static_cast<std::size_t>(std::max(form.StartLine, 1)) - 1;
  if (header + 1 < lines.size()) {
    const std::vector<std::string_view> rows(lines.begin() + static_cast<std::ptrdiff_t>(header) + 1,
                                             lines.end());
    const bool isCsv = EndsWithIgnoringCase(path_, ".csv");
    const LayoutGuess guess =
        GuessLayout({lines[header], rows, ColumnsOf(form).size(), hasMisfits}, form, isCsv);
    if (!guess.code.empty()) return {guess.message + ".", guess.layout, {}};
  }
  return HeaderLineFor(form, type, lines);
}

// A format without columns is given what a format made from the file's headings would have.
Suggestion Sample::LayoutForNewFormat(const OptionForm& form, const RecordType& type,
                                      const std::vector<std::string_view>& lines) const {
  std::vector<std::string> texts;
  for (const std::string_view line : lines) texts.push_back(ToUtf8(line));
  const LayoutProposal found = ProposeLayout({texts.begin(), texts.end()}, type);
  const bool isCsv = EndsWithIgnoringCase(path_, ".csv");
  const auto keywords = ProposeColumns(type, found.headings);
  const auto known =
      keywords.size() - static_cast<std::size_t>(std::count(keywords.begin(), keywords.end(), kIgnore));
  const SplitRules layout{std::string(1, found.delimiter), found.qualifier};
  const SplitRules now = LayoutOf(form, isCsv);
  const int line = static_cast<int>(found.headerLine);
  const bool isSo = now.delimiters == layout.delimiters && (isCsv || now.qualifier == layout.qualifier) &&
                    form.StartLine == line;
  if (known < kSureHeadings || isSo || (isCsv && found.delimiter != ',')) return {};
  const std::size_t name = kDelimiterCharacters.find(found.delimiter);
  return {"With the delimiter " +
              (name == kDelimiterCharacters.npos ? std::string(1, found.delimiter)
                                                 : std::string(kDelimiterNames[name])) +
              " and the headings in line " + std::to_string(line) + " there are " +
              Counted(keywords.size(), "column") + ", of which " + std::to_string(known) + " are known.",
          isCsv ? std::nullopt : std::optional(layout), line};
}

Suggestion Sample::HeaderLineFor(const OptionForm& form, const RecordType& type,
                                 const std::vector<std::string_view>& lines) const {
  std::vector<std::vector<std::string>> rows = start_->cells;
  const SplitRules layout = LayoutOf(form, EndsWithIgnoringCase(path_, ".csv"));
  for (const std::string_view line : lines)
    if (rows.size() < kMaxRows) rows.push_back(PlainFields(line, layout));
  for (std::vector<std::string>& row : rows) {
    row.resize(std::min(row.size(), kMaxColumns));
    for (std::string& field : row) field = ToUtf8(field);
  }
  const auto header = static_cast<std::size_t>(std::max(form.StartLine, 1)) - 1;
  const auto better = GuessHeaderRow(rows, header, type);
  if (!better || *better == header) return {};
  const int line = static_cast<int>(*better) + 1;
  return {"The headings seem to stand in line " + std::to_string(line) + ", not in line " +
              std::to_string(header + 1) + ".",
          {},
          line};
}

}  // namespace qv
