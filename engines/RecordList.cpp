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

namespace {

constexpr std::size_t kAhead = 2;

// The texts of a large record begin some 256 bytes apart, each in a part of memory of its own that the
// processor would wait for, one after another, when the record's turn comes.
template <class Record>
void FetchAhead(const Record* record) {
  const char* const bytes = reinterpret_cast<const char*>(record);
  for (std::size_t at = 0; at < sizeof(Record); at += 256) __builtin_prefetch(bytes + at);
}

/// A sink that does with each record what a callable says.
template <class Record, class Take>
class SinkOf final : public RecordSink<Record> {
 public:
  explicit SinkOf(Take take) : take_(take) {}
  bool Write(const Record& record) override {
    take_(record);
    return true;
  }

 private:
  Take take_;
};

template <class Record, class Take>
SinkOf<Record, Take> MakeSink(Take take) {
  return SinkOf<Record, Take>(take);
}

}  // namespace

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
bool RecordList<Record>::Keep() {
  if (handler_ != nullptr) return handler_(next_, handlerContext_);
  hasBegun_ = false;
  ++next_;
  ++built_;
  return true;
}

template <class Record>
void RecordList<Record>::HandTo(RecordHandler<Record> handler, void* context) {
  handler_ = handler;
  handlerContext_ = context;
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
void RecordList<Record>::FeedFrom(RecordFeed<Record> feed, void* context) {
  feed_ = feed;
  feedContext_ = context;
}

template <class Record>
bool RecordList<Record>::WriteInto(RecordSink<Record>& sink) const {
  if (feed_ != nullptr) return feed_(sink, feedContext_);
  const std::size_t size = Size();
  for (std::size_t rank = 0; rank < size; ++rank) {
    if (rank + kAhead < size) FetchAhead((*this)[rank + kAhead]);
    if (!sink.Write(*(*this)[rank])) break;
  }
  return true;
}

template <class Record>
bool RecordList<Record>::TakeFed() {
  if (feed_ == nullptr) return true;
  auto sink = MakeSink<Record>([this](const Record& record) {
    Begin() = record;
    Keep();
  });
  return std::exchange(feed_, nullptr)(sink, feedContext_);
}

template <class Record>
bool RecordList<Record>::DropFed() const {
  auto sink = MakeSink<Record>([](const Record&) {});
  return feed_ == nullptr || feed_(sink, feedContext_);
}

template <class Record>
Record* RecordList<Record>::Staged(std::size_t rank) const {
  return static_cast<Record*>(staged_[rank]->Pointer());
}

template <class Record>
void RecordList<Record>::Clear() {
  DropBegun();
  for (std::size_t rank = 0; rank < built_; ++rank) std::destroy_at(Built(rank));
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
