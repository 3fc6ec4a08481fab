#include <QVAssemblyFile/JobProgressInfo.h>

#include "records/Accessors.h"

JobProgressInfo::JobProgressInfo() = default;
JobProgressInfo::JobProgressInfo(const JobProgressInfo& other) = default;
JobProgressInfo& JobProgressInfo::operator=(const JobProgressInfo& other) = default;
JobProgressInfo::~JobProgressInfo() = default;

QV_STRING_BY_REFERENCE(JobProgressInfo, JobName, jobName_)
QV_STRING_BY_REFERENCE(JobProgressInfo, JobProgress, jobProgress_)
QV_STRING_BY_REFERENCE(JobProgressInfo, StartTime, startTime_)
QV_STRING_BY_REFERENCE(JobProgressInfo, EndTime, endTime_)
QV_STRING_BY_REFERENCE(JobProgressInfo, TotalPartQty, totalPartQty_)
QV_STRING_BY_REFERENCE(JobProgressInfo, TotalDoneQty, totalDoneQty_)
QV_STRING_BY_REFERENCE(JobProgressInfo, MatType, matType_)
QV_STRING_BY_REFERENCE(JobProgressInfo, Thickness, thickness_)
