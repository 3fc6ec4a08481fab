#include "engines/RecordList.h"

#include "engines/AttachedRecord.h"
#include "platform/LargeBlock.h"

#include <QVAssemblyFile/JobProgressInfo.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/MaterialInfomation.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/PrtInfo.h>
#include <QVAssemblyFile/ShtInfo.h>
#include <QVAssemblyFile/ToolInformation.h>

#include <memory>
#include <new>
#include <utility>

template <class Record>
RecordList<Record>::RecordList() = default;

template <class Record>
RecordList<Record>::~RecordList() {
  Clear();
}

template <class Record>
Record& RecordList<Record>::Begin() {
  DropBegun();
  if (next_ == blockEnd_) AddBlock();
  new (next_) Record;
  hasBegun_ = true;
  return *next_;
}

template <class Record>
void RecordList<Record>::Keep() {
  hasBegun_ = false;
  ++next_;
  ++built_;
}

template <class Record>
void RecordList<Record>::DropBegun() {
  if (hasBegun_) std::destroy_at(next_);
  hasBegun_ = false;
}

template <class Record>
void RecordList<Record>::AddBlock() {
  blocks_.reserve(blocks_.size() + 1);
  const bool isFirst = blocks_.empty();
  void* const block = isFirst ? ::operator new(kFirstBlockSize) : qv::AcquireLargeBlock(kBlockSize);
  if (block == nullptr) throw std::bad_alloc();
  next_ = static_cast<Record*>(block);
  blockEnd_ = next_ + (isFirst ? kInFirst : kInBlock);
  blocks_.push_back(next_);
}

template <class Record>
void RecordList<Record>::FreeBlock(Record* block, bool isFirst) {
  isFirst ? ::operator delete(block) : qv::ReleaseLargeBlock(block, kBlockSize);
}

template <class Record>
void RecordList<Record>::Stage(std::shared_ptr<qv::AttachedRecord> record) {
  staged_.push_back(std::move(record));
  staged_.back()->TakeOver();
}

template <class Record>
Record* RecordList<Record>::Staged(std::size_t index) const {
  return static_cast<Record*>(staged_[index]->Pointer());
}

template <class Record>
void RecordList<Record>::Clear() {
  DropBegun();
  for (std::size_t index = 0; index < built_; ++index) std::destroy_at(Built(index));
  for (std::size_t block = 0; block < blocks_.size(); ++block) FreeBlock(blocks_[block], block == 0);
  built_ = 0;
  next_ = blockEnd_ = nullptr;
  blocks_.clear();
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
