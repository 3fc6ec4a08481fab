#pragma once

#include "cli/JsonWriter.h"
#include "cli/Session.h"
#include "cli/check/RejectedRows.h"
#include "cli/check/Suggestions.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qv {

/// Everything that is wrong with one data file: as lines of text among the program's diagnostics, or as one
/// JSON document on standard output. Gets each warning while it lives and keeps none of them.
class CheckReport {
 public:
  CheckReport(Session& session, Utf8Path file, std::string kind, bool asJson);
  ~CheckReport() { session_.diagnostics.SetFilter({}); }
  CheckReport(const CheckReport&) = delete;
  CheckReport& operator=(const CheckReport&) = delete;

  /// Gets the rows that are left out from now on; may be null.
  void CopyLeftOutTo(RejectedRows* rejects) { rejects_ = rejects; }

  /// How many rows were left out so far.
  std::int64_t LeftOut() const { return leftOut_; }

  /// What was found so far in rows that gave so many records.
  RowFindings Findings(std::int64_t records) const {
    return {records + leftOut_, HasMisfits(), trailingTexts_};
  }

  /// Ends the report: what may help, what to do about the warnings, how many rows there were.
  void Finish(const std::vector<Utf8Diagnostic>& suggestions, const std::string& format,
              std::int64_t records);

  /// Ends a report that has begun and cannot go on.
  void Abandon();

 private:
  bool Take(const Utf8Diagnostic& warning);
  bool HasMisfits() const;  // a row with too few or too many fields, or a qualifier that was left open
  void FinishText(const std::vector<Utf8Diagnostic>& suggestions, std::int64_t records) const;
  void FinishJson(const std::vector<Utf8Diagnostic>& suggestions, const std::string& format,
                  std::int64_t records, bool isComplete);
  void BeginJson();
  void FlushJson();
  void Count(const std::string& code);

  Session& session_;
  Utf8Path file_;
  std::string kind_;
  bool asJson_;
  std::string pending_;  // JSON that has not been printed yet
  JsonWriter json_{pending_};
  bool hasBegun_ = false;
  RejectedRows* rejects_ = nullptr;
  std::int64_t warnings_ = 0;
  std::int64_t leftOut_ = 0;
  std::map<std::string, TrailingTexts> trailingTexts_;
  std::vector<std::pair<std::string, std::int64_t>>
      counts_;  // per code, in the order in which they came first
};

}  // namespace qv
