#include "cli/DataFile.h"
#include "cli/JsonWriter.h"
#include "cli/check/RejectedRows.h"
#include "cli/check/Suggestions.h"
#include "cli/commands/Commands.h"
#include "platform/CodePage.h"
#include "text/Phrases.h"

#include <algorithm>
#include <ostream>

namespace qv {
namespace {

constexpr const char* kCheckFooter = R"(
Ends with 1 when something was not taken as it stands in the file. Suggestions
are given only where they are certain, and do not count.

Examples:
  qvassembly check --kind parts --format orders parts.csv
  qvassembly check --kind parts --rejects left-out.csv parts.csv
  qvassembly check --kind tools --as json tools.txt | jq .counts)";

constexpr std::pair<DiagnosticCode, std::string_view> kAdvice[] = {
    {DiagnosticCode::ConfigurationInvalid, "look over the format file, or name another one with --config"},
    {DiagnosticCode::UnknownColumn,
     "correct the keyword in the format, or let Ignore take the column's place"},
    {DiagnosticCode::PositionTaken, "give each column of the format its own position"},
    {DiagnosticCode::InvalidPosition, "give the column's position as a whole number, counted from 0"},
    {DiagnosticCode::RowLeftOut, "fill in the cell that a record cannot be without, or delete the row"},
    {DiagnosticCode::RowTooShort,
     "add the missing cells, or compare the format's columns with the header row"},
    {DiagnosticCode::NoHeaderRow, "give the format the line that holds the headers, counted from 1"},
    {DiagnosticCode::NoColumns, "give the format columns, or choose another one with --format"},
    {DiagnosticCode::RowTooLong,
     "put texts that hold a delimiter between qualifiers, or let Ignore stand for the surplus columns"},
    {DiagnosticCode::NotANumber, "write a number there, with a point as the decimal sign"},
    {DiagnosticCode::TrailingText,
     "leave nothing but the number in the cell: no unit, no comma, no digit grouping"},
    {DiagnosticCode::NumberOutOfRange, "write a number that fits the column"},
    {DiagnosticCode::EmptyValue, "write the value that is meant, as an empty cell is not the default"},
    {DiagnosticCode::UnknownWord, "write one of the words that the column knows, letter by letter"},
    {DiagnosticCode::TextCut, "shorten the text"},
    {DiagnosticCode::OpenQualifier,
     "close the qualifier, or take it away; a text cannot go on in the next line"},
    {DiagnosticCode::StrayQuote,
     "put the text between qualifiers, or write the double quote in another way, such as in"},
    {DiagnosticCode::ByteOrderMark, "save the file without a byte-order mark"},
    {DiagnosticCode::CarriageReturn, "save the file with LF or CR LF at the end of each line"},
    {DiagnosticCode::EndOfText, "take the byte 1A (hex) out of the file, or end the file there"},
    {DiagnosticCode::NulByte, "save the file anew as text, in the system's code page or as UTF-8"},
};

/// What a person may do about the warnings of a code; empty where the message says it all.
std::string_view AdviceFor(std::string_view code) {
  for (const auto& [known, toDo] : kAdvice)
    if (code == DiagnosticCodeName(known)) return toDo;
  return {};
}

void WriteDiagnostic(JsonWriter& json, const Utf8Diagnostic& diagnostic, const std::string& dataFile) {
  json.BreakLine();
  json.BeginObject();
  if (diagnostic.file != dataFile) json.Member("file", diagnostic.file);
  json.Member("line", diagnostic.line);
  json.Member("column", diagnostic.column);
  json.Member("code", diagnostic.code);
  json.Member("text", diagnostic.text);
  json.Member("stored", diagnostic.stored);
  json.Member("message", diagnostic.message);
  json.Member("todo", AdviceFor(diagnostic.code));
  json.EndObject();
}

struct CheckOptions : FileOptions {
  std::string as = "text";
  std::optional<std::string> rejects;
};

/// Everything that is wrong with one data file: as lines of text among the program's diagnostics, or as one
/// JSON document on standard output. Gets each warning while it lives and keeps none of them.
class CheckReport {
 public:
  CheckReport(Session& session, const CheckOptions& options)
      : session_(session), options_(options), asJson_(options.as == "json") {
    session_.diagnostics.SetFilter([this](const Utf8Diagnostic& warning) { return Take(warning); });
  }
  ~CheckReport() { session_.diagnostics.SetFilter({}); }
  CheckReport(const CheckReport&) = delete;
  CheckReport& operator=(const CheckReport&) = delete;

  std::optional<RejectedRows> rejects;  ///< gets the rows that are left out

  /// What was found so far in rows that gave so many records.
  const RowFindings& Findings(std::int64_t records) {
    findings_.rows = records + leftOut_;
    return findings_;
  }

  /// Ends the report: what may help, what to do about the warnings, how many rows there were.
  void Finish(const std::vector<Utf8Diagnostic>& suggestions, const std::string& format,
              std::int64_t records) {
    if (asJson_)
      FinishJson(suggestions, format, records, true);
    else
      FinishText(suggestions, records);
  }

  /// Ends a report that has begun and cannot go on.
  void Abandon() {
    if (asJson_ && hasBegun_) FinishJson({}, "", 0, false);
  }

 private:
  bool Take(const Utf8Diagnostic& warning) {
    ++warnings_;
    Count(warning.code);
    const auto is = [&](DiagnosticCode code) { return warning.code == DiagnosticCodeName(code); };
    if (is(DiagnosticCode::RowLeftOut)) {
      ++leftOut_;
      if (rejects) rejects->Take(warning.line);
    }
    findings_.hasMisfits = findings_.hasMisfits || is(DiagnosticCode::RowTooShort) ||
                           is(DiagnosticCode::RowTooLong) || is(DiagnosticCode::OpenQualifier);
    if (is(DiagnosticCode::TrailingText)) findings_.trailingTexts[warning.column].Add(warning.text);
    if (!asJson_) return true;
    BeginJson();
    // Nothing may be thrown through the library; what the stream refuses shows at the end.
    WriteDiagnostic(json_, warning, options_.file);
    FlushJson();
    return false;
  }

  void Count(const std::string& code) {
    auto known = std::ranges::find(counts_, code, &std::pair<std::string, std::int64_t>::first);
    if (known == counts_.end()) known = counts_.insert(known, {code, 0});
    ++known->second;
  }

  void FinishText(const std::vector<Utf8Diagnostic>& suggestions, std::int64_t records) {
    session_.diagnostics.PrintOmitted();
    for (const Utf8Diagnostic& suggestion : suggestions) session_.diagnostics.Advise(suggestion);
    for (const auto& [code, count] : counts_)
      if (const std::string_view toDo = AdviceFor(code); !toDo.empty())
        session_.diagnostics.Note("  " + std::to_string(count) + " x " + code + ": " + std::string(toDo));
    std::string summary = ShownPath(options_.file) + ": ";
    if (leftOut_ > 0)
      summary += Counted(records + leftOut_, "row") + ", " + std::to_string(leftOut_) + " left out, ";
    summary += Counted(records, "record") + ", ";
    if (warnings_ == 0 && !suggestions.empty())
      summary += Counted(suggestions.size(), "suggestion");
    else
      summary += warnings_ == 0 ? "nothing to remark on" : Counted(warnings_, "remark");
    session_.diagnostics.Note(summary);
  }

  void BeginJson() {
    if (hasBegun_) return;
    hasBegun_ = true;
    json_.BeginObject();
    json_.Member("file", ShownPath(options_.file));
    json_.Member("kind", options_.kind);
    json_.Key("remarks").BeginArray();
  }

  void FinishJson(const std::vector<Utf8Diagnostic>& suggestions, const std::string& format,
                  std::int64_t records, bool isComplete) {
    BeginJson();
    json_.EndArray();
    json_.Key("suggestions").BeginArray();
    for (const Utf8Diagnostic& suggestion : suggestions) WriteDiagnostic(json_, suggestion, options_.file);
    json_.EndArray();
    json_.Key("counts").BeginObject();
    for (const auto& [code, count] : counts_) json_.Member(code, count);
    json_.EndObject();
    json_.Member("format", format);
    json_.Member("rows", records + leftOut_);
    json_.Member("records", records);
    json_.Member("leftOut", leftOut_);
    json_.Member("remarkCount", warnings_);
    json_.Member("complete", isComplete);
    json_.EndObject();
    pending_ += '\n';
    FlushJson();
  }

  void FlushJson() {
    session_.streams.out << pending_;
    pending_.clear();
  }

  Session& session_;
  const CheckOptions& options_;
  const bool asJson_;
  std::string pending_;  // JSON that has not been printed yet
  JsonWriter json_{pending_};
  bool hasBegun_ = false;
  std::int64_t warnings_ = 0;
  std::int64_t leftOut_ = 0;
  RowFindings findings_;
  // Per code, in the order in which they came first.
  std::vector<std::pair<std::string, std::int64_t>> counts_;
};

void PrepareRejects(const CheckOptions& options, const FormatFile& formats,
                    std::optional<RejectedRows>& rejects) {
  if (!options.rejects) return;
  if (IsWorkbook(options.file)) throw UsageError("--rejects: the rows of a workbook are no lines of text");
  if (IsStream(options.file) || IsStandardStream(options.file))
    throw UsageError("--rejects: a pipe cannot be read a second time");
  if (IsSameFile(*options.rejects, options.file)) throw UsageError("--rejects names the data file itself");
  if (formats.IsFile() && IsSameFile(*options.rejects, formats.Path()))
    throw UsageError("--rejects names the format file");
  rejects.emplace(options.file, *options.rejects);
}

int ReportOn(Session& session, const CheckOptions& options, CheckReport& report) {
  const RecordKind kind = KindForUse(options.kind, KindUse::Import);
  const FormatFile formats(options.config, {options.file}, session.diagnostics);
  const DataStart start(options.file);
  const OptionForm& form = formats.FindFor(options.format, start, session);
  const DataFile file{options.file, kind, formats, form, options.hasDecimalComma};
  PrepareRejects(options, formats, report.rejects);
  std::int64_t records = 0;
  for (InputFile source(session, file); source.Next() != nullptr; ++records)
    if (!session.streams.out) throw ReportedFileError();  // nobody reads the report any more
  if (report.rejects) report.rejects->Commit();
  report.Finish(Suggestions(file, start, report.Findings(records), session.coding), ToUtf8(form.Name),
                records);
  return session.diagnostics.Warnings() == 0 ? kDone : kWarned;
}

int RunCheck(Session& session, CheckOptions& options) {
  TakeStreams(session, options.type, &options.file, nullptr);
  CheckReport report(session, options);
  try {
    return ReportOn(session, options, report);
  } catch (...) {
    report.Abandon();
    throw;
  }
}

}  // namespace

void AddCheckCommand(CLI::App& program, Session& session) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App& command = AddCommand(program, session, "check",
                                 "Read a data file and print only what is wrong with it", options, RunCheck);
  AddKindOption(command, *options, KindUse::Import);
  AddFormatOptions(command, *options);
  AddDecimalCommaOption(command, options->hasDecimalComma);
  AddChoice(command, "--as", options->as, "FORM", {"text", "json"},
            "text (remarks on standard error) or json (one document)");
  AddOption(command, "--rejects", options->rejects, "FILE",
            "writes the rows that are left out, as they stand");
  AddTypeOption(command, options->type);
  AddArgument(command, "FILE", options->file, "the data file; - for standard input");
  command.footer(kCheckFooter);
}

}  // namespace qv
