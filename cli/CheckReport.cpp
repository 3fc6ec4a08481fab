#include "cli/CheckReport.h"

#include "cli/CheckAdvice.h"
#include "cli/JsonText.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <algorithm>
#include <ostream>

namespace qv {
namespace {

std::string Counted(std::int64_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void AppendMember(std::string& json, const char* key, std::string_view text) {
  AppendJsonText(json, key);
  json += ':';
  AppendJsonText(json, text);
}

void AppendMember(std::string& json, const char* key, std::int64_t number) {
  AppendJsonText(json, key);
  json.append(":").append(std::to_string(number));
}

std::string RemarkJson(const Remark& remark, const std::string& dataFile) {
  std::string json = "\n{";
  if (remark.file != dataFile) {
    AppendMember(json, "file", remark.file);
    json += ',';
  }
  AppendMember(json, "line", remark.line);
  const std::pair<const char*, std::string_view> texts[] = {
      {"column", remark.column}, {"code", remark.code},       {"text", remark.text},
      {"stored", remark.stored}, {"message", remark.message}, {"todo", AdviceFor(remark.code)}};
  for (const auto& [key, text] : texts) {
    json += ',';
    AppendMember(json, key, text);
  }
  return json + "}";
}

}  // namespace

CheckReport::CheckReport(Session& session, Utf8Path file, std::string kind, bool asJson)
    : session_(session), file_(std::move(file)), kind_(std::move(kind)), asJson_(asJson) {
  session_.remarks.SetListener(this);
}

bool CheckReport::Hear(const Remark& remark) {
  ++remarks_;
  Count(remark.code);
  if (remark.code == DiagnosticCodeName(DiagnosticCode::RowLeftOut)) {
    ++leftOut_;
    if (rejects_ != nullptr) rejects_->Take(remark.line);
  }
  if (!asJson_) return true;
  BeginJson();
  // The library takes no exception from its listeners; what the stream refuses shows at the end.
  session_.streams.out << (remarks_ == 1 ? "" : ",") << RemarkJson(remark, file_);
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

void CheckReport::Finish(const std::vector<Remark>& suggestions, const std::string& format,
                         std::int64_t records) {
  if (asJson_)
    FinishJson(suggestions, format, records, true);
  else
    FinishText(suggestions, records);
}

void CheckReport::Abandon() {
  if (asJson_ && hasBegun_) FinishJson({}, "", 0, false);
}

void CheckReport::FinishText(const std::vector<Remark>& suggestions, std::int64_t records) const {
  for (const Remark& suggestion : suggestions) session_.remarks.Advise(suggestion);
  for (const auto& [code, count] : counts_)
    if (const std::string_view toDo = AdviceFor(code); !toDo.empty())
      session_.remarks.Note("  " + std::to_string(count) + " x " + code + ": " + std::string(toDo));
  std::string summary = file_ + ": ";
  if (leftOut_ > 0)
    summary += Counted(records + leftOut_, "row") + ", " + std::to_string(leftOut_) + " left out, ";
  summary += Counted(records, "record") + ", ";
  session_.remarks.Note(summary + (remarks_ == 0 ? "nothing to remark on" : Counted(remarks_, "remark")));
}

void CheckReport::BeginJson() {
  if (hasBegun_) return;
  hasBegun_ = true;
  std::string json = "{";
  AppendMember(json, "file", file_);
  json += ',';
  AppendMember(json, "kind", kind_);
  session_.streams.out << json << ",\"remarks\":[";
}

void CheckReport::FinishJson(const std::vector<Remark>& suggestions, const std::string& format,
                             std::int64_t records, bool isComplete) {
  BeginJson();
  std::string json = "],\"suggestions\":[";
  for (const Remark& suggestion : suggestions)
    json.append(&suggestion == &suggestions.front() ? "" : ",").append(RemarkJson(suggestion, file_));
  json += "],\"counts\":{";
  for (const auto& [code, count] : counts_) {
    if (code != counts_.front().first) json += ',';
    AppendMember(json, code.c_str(), count);
  }
  json += "},";
  AppendMember(json, "format", format);
  const std::pair<const char*, std::int64_t> totals[] = {
      {"rows", records + leftOut_}, {"records", records}, {"leftOut", leftOut_}, {"remarkCount", remarks_}};
  for (const auto& [key, number] : totals) {
    json += ',';
    AppendMember(json, key, number);
  }
  session_.streams.out << json << ",\"complete\":" << (isComplete ? "true" : "false") << "}\n";
}

}  // namespace qv
