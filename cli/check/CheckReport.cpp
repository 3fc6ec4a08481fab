#include "cli/check/CheckReport.h"

#include "text/Phrases.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <algorithm>
#include <ostream>

namespace qv {
namespace {

struct Advice {
  DiagnosticCode code;
  std::string_view toDo;
};

constexpr Advice kAdvice[] = {
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
  for (const Advice& advice : kAdvice)
    if (code == DiagnosticCodeName(advice.code)) return advice.toDo;
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

}  // namespace

CheckReport::CheckReport(Session& session, Utf8Path file, std::string kind, bool asJson)
    : session_(session), file_(std::move(file)), kind_(std::move(kind)), asJson_(asJson) {
  session_.diagnostics.SetFilter([this](const Utf8Diagnostic& warning) { return Take(warning); });
}

bool CheckReport::Take(const Utf8Diagnostic& warning) {
  ++warnings_;
  Count(warning.code);
  if (warning.code == DiagnosticCodeName(DiagnosticCode::RowLeftOut)) {
    ++leftOut_;
    if (rejects_ != nullptr) rejects_->Take(warning.line);
  }
  if (warning.code == DiagnosticCodeName(DiagnosticCode::TrailingText))
    trailingTexts_[warning.column].Add(warning.text);
  if (!asJson_) return true;
  BeginJson();
  // Nothing may be thrown through the library; what the stream refuses shows at the end.
  WriteDiagnostic(json_, warning, file_);
  FlushJson();
  return false;
}

void CheckReport::Count(const std::string& code) {
  const auto known =
      std::find_if(counts_.begin(), counts_.end(), [&](const auto& entry) { return entry.first == code; });
  if (known == counts_.end())
    counts_.emplace_back(code, 1);
  else
    ++known->second;
}

bool CheckReport::HasMisfits() const {
  constexpr DiagnosticCode kMisfits[] = {DiagnosticCode::RowTooShort, DiagnosticCode::RowTooLong,
                                         DiagnosticCode::OpenQualifier};
  return std::any_of(counts_.begin(), counts_.end(), [&](const auto& entry) {
    return std::any_of(std::begin(kMisfits), std::end(kMisfits),
                       [&](DiagnosticCode code) { return entry.first == DiagnosticCodeName(code); });
  });
}

void CheckReport::Finish(const std::vector<Utf8Diagnostic>& suggestions, const std::string& format,
                         std::int64_t records) {
  if (asJson_)
    FinishJson(suggestions, format, records, true);
  else
    FinishText(suggestions, records);
}

void CheckReport::Abandon() {
  if (asJson_ && hasBegun_) FinishJson({}, "", 0, false);
}

void CheckReport::FinishText(const std::vector<Utf8Diagnostic>& suggestions, std::int64_t records) const {
  session_.diagnostics.PrintOmitted();
  for (const Utf8Diagnostic& suggestion : suggestions) session_.diagnostics.Advise(suggestion);
  for (const auto& [code, count] : counts_)
    if (const std::string_view toDo = AdviceFor(code); !toDo.empty())
      session_.diagnostics.Note("  " + std::to_string(count) + " x " + code + ": " + std::string(toDo));
  std::string summary = ShownPath(file_) + ": ";
  if (leftOut_ > 0)
    summary += Counted(records + leftOut_, "row") + ", " + std::to_string(leftOut_) + " left out, ";
  summary += Counted(records, "record") + ", ";
  if (warnings_ == 0 && !suggestions.empty())
    summary += Counted(suggestions.size(), "suggestion");
  else
    summary += warnings_ == 0 ? "nothing to remark on" : Counted(warnings_, "remark");
  session_.diagnostics.Note(summary);
}

void CheckReport::BeginJson() {
  if (hasBegun_) return;
  hasBegun_ = true;
  json_.BeginObject();
  json_.Member("file", ShownPath(file_));
  json_.Member("kind", kind_);
  json_.Key("remarks").BeginArray();
}

void CheckReport::FinishJson(const std::vector<Utf8Diagnostic>& suggestions, const std::string& format,
                             std::int64_t records, bool isComplete) {
  BeginJson();
  json_.EndArray();
  json_.Key("suggestions").BeginArray();
  for (const Utf8Diagnostic& suggestion : suggestions) WriteDiagnostic(json_, suggestion, file_);
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

void CheckReport::FlushJson() {
  session_.streams.out << pending_;
  pending_.clear();
}

}  // namespace qv
