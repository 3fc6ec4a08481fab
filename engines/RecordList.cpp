#include "engines/RecordList.h"

#include "engines/AttachedRecord.h"

#include <QVAssemblyFile/JobProgressInfo.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/MaterialInfomation.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/PrtInfo.h>
#include <QVAssemblyFile/ShtInfo.h>
#include <QVAssemblyFile/ToolInformation.h>

template <class Record>
void RecordList<Record>::Append(std::unique_ptr<Record> record) {
  records_.push_back(record.get());
  built_.push_back(std::move(record));
}

template <class Record>
void RecordList<Record>::Stage(std::shared_ptr<qv::AttachedRecord> record) {
  records_.push_back(static_cast<Record*>(record->Pointer()));
  staged_.push_back(std::move(record));
  staged_.back()->TakeOver();
}

template <class Record>
RecordList<Record>::RecordList() = default;

template <class Record>
RecordList<Record>::~RecordList() = default;

template <class Record>
void RecordList<Record>::Clear() {
  records_.clear();
  built_.clear();
  staged_.clear();
}

template class RecordList<PartInformation>;
template class RecordList<ToolInformation>;
template class RecordList<MaterialInfomation>;
template class RecordList<ShtInfo>;
template class RecordList<PrtInfo>;
template class RecordList<MatAmncITInfo>;
template class RecordList<MatLibraryInfo>;
template class RecordList<JobProgressInfo>;
