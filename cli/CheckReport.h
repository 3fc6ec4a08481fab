#pragma once

#include "cli/RejectedRows.h"
#include "cli/Session.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qv {

/// Everything that is wrong with one data file: as lines of text among the program's remarks, or as one JSON
/// document on standard output. Hears the remarks while it lives and keeps none of them.
class CheckReport final : public RemarkListener {
 public:
  CheckReport(Session& session, Utf8Path file, std::string kind, bool asJson);
  ~CheckReport() override { session_.remarks.SetListener(nullptr); }
  CheckReport(const CheckReport&) = delete;
  CheckReport& operator=(const CheckReport&) = delete;

  bool Hear(const Remark& remark) override;

  /// Gets the rows that are left out from now on; may be null.
  void CopyLeftOutTo(RejectedRows* rejects) { rejects_ = rejects; }

  /// How many rows were left out so far.
  std::int64_t LeftOut() const { return leftOut_; }

  /// Whether a row had too few or too many fields so far, or a qualifier was left open.
  bool HasMisfits() const;

  /// Ends the report: what may help, what to do about the remarks, how many rows there were.
  void Finish(const std::vector<Remark>& suggestions, const std::string& format, std::int64_t records);

  /// Ends a report that has begun and cannot go on.
  void Abandon();

 private:
  void FinishText(const std::vector<Remark>& suggestions, std::int64_t records) const;
  void FinishJson(const std::vector<Remark>& suggestions, const std::string& format, std::int64_t records,
                  bool isComplete);
  void BeginJson();
  void Count(const std::string& code);

  Session& session_;
  Utf8Path file_;
  std::string kind_;
  bool asJson_;
  bool hasBegun_ = false;
  RejectedRows* rejects_ = nullptr;
  std::int64_t remarks_ = 0;
  std::int64_t leftOut_ = 0;
  std::vector<std::pair<std::string, std::int64_t>> counts_;  // per code, in the order of the first remarks
};

}  // namespace qv
