#pragma once

#include <QVAssemblyFile/CString.h>
#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/RecordStorage.h>

/// The progress of one job: one row of a job-progress file. Everything is text, in the host's form, of any
/// length, and empty in a fresh record. A copy is independent of its source. A record belongs to one thread
/// at a time.
class QVASSEMBLY_API JobProgressInfo {
 public:
  JobProgressInfo();
  JobProgressInfo(const JobProgressInfo& other);
  JobProgressInfo& operator=(const JobProgressInfo& other);
  ~JobProgressInfo();

  CString GetJobName();
  void SetJobName(const CString& text);
  CString GetJobProgress();
  void SetJobProgress(const CString& text);
  CString GetStartTime();
  void SetStartTime(const CString& text);
  CString GetEndTime();
  void SetEndTime(const CString& text);
  CString GetTotalPartQty();
  void SetTotalPartQty(const CString& text);
  CString GetTotalDoneQty();
  void SetTotalDoneQty(const CString& text);
  CString GetMatType();
  void SetMatType(const CString& text);
  CString GetThickness();
  void SetThickness(const CString& text);

  QVASSEMBLY_RECORD_STORAGE

 private:
  friend struct qv::ColumnTable<JobProgressInfo>;

  CString JobName_, JobProgress_, StartTime_, EndTime_, TotalPartQty_, TotalDoneQty_, MatType_, Thickness_;
};
