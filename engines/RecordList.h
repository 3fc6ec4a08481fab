#pragma once

#include <QVAssemblyFile/RecordStream.h>

#include <cstddef>
#include <memory>
#include <tuple>
#include <vector>

class JobProgressInfo;
class MatAmncITInfo;
class MatLibraryInfo;
class MaterialInfomation;
class PartInformation;
class PrtInfo;
class ShtInfo;
class ToolInformation;

namespace qv {
class AttachedRecord;
}

/// The records of one kind that an engine holds: built by an import (the engine's own, in blocks of the
/// list's) or staged for an export (held together with the manager that attached them). All of them go with
/// the list. Instead of being held, records may also pass through it one by one.
template <class Record>
class RecordList {
 public:
  RecordList();
  ~RecordList();
  RecordList(const RecordList&) = delete;
  RecordList& operator=(const RecordList&) = delete;

  /// A fresh record for the engine to fill. It becomes the last one of the list with Keep(); without, it is
  /// gone with the next Begin(). Keep() returns false when no more records are wanted.
  Record& Begin();
  bool Keep();

  /// From now on what Keep() would add to the list is handed to `handler` and not held.
  void HandTo(RecordHandler<Record> handler, void* context);

  /// Takes a share in a record that a host attached. The library owns it from now on.
  void Stage(std::shared_ptr<qv::AttachedRecord> record);

  /// From now on `feed` stands for the records of the list when they are written.
  void FeedFrom(RecordFeed<Record> feed, void* context);

  /// Writes all records into the sink; false when the feed gave up.
  bool WriteInto(RecordSink<Record>& sink) const;

  /// Takes copies of what the feed has to give into the list, for those who need the records more than once.
  /// False when the feed gave up.
  bool TakeFed();

  /// Hears the feed out without writing anything; false when it gave up. True without a feed.
  bool DropFed() const;

  std::size_t Size() const { return built_ + staged_.size(); }
  Record* operator[](std::size_t rank) const { return rank < built_ ? Built(rank) : Staged(rank - built_); }
  void Clear();

  class Iterator {
   public:
    Iterator(const RecordList& list, std::size_t rank) : list_(&list), rank_(rank) {}
    Record* operator*() const { return (*list_)[rank_]; }
    Iterator& operator++() {
      ++rank_;
      return *this;
    }
    bool operator==(const Iterator& other) const { return rank_ == other.rank_; }

   private:
    const RecordList* list_;
    std::size_t rank_;
  };
  Iterator begin() const { return {*this, 0}; }
  Iterator end() const { return {*this, Size()}; }

 private:
  // The first block is from the heap, which reuses it for one small file after another. The others are large,
  // so that what is left at their ends is nothing beside the records; what no record reaches is never
  // touched.
  static constexpr std::size_t kFirstBlockSize = std::size_t{2} << 20;
  static constexpr std::size_t kBlockSize = std::size_t{16} << 20;
  static constexpr std::size_t kInFirst = kFirstBlockSize / sizeof(Record);
  static constexpr std::size_t kInBlock = kBlockSize / sizeof(Record);
  Record* Built(std::size_t rank) const {
    if (rank < kInFirst) return blocks_.front() + rank;
    const std::size_t later = rank - kInFirst;
    return blocks_[1 + later / kInBlock] + later % kInBlock;
  }
  Record* Staged(std::size_t rank) const;
  void AddBlock();
  static void FreeBlock(Record* block, bool isFirst);
  void DropBegun();

  std::vector<Record*> blocks_;
  Record* next_ = nullptr;  // the place for the next record, in the last block
  Record* blockEnd_ = nullptr;
  std::size_t built_ = 0;
  bool hasBegun_ = false;
  std::vector<std::shared_ptr<qv::AttachedRecord>> staged_;
  RecordHandler<Record> handler_ = nullptr;
  void* handlerContext_ = nullptr;
  RecordFeed<Record> feed_ = nullptr;
  void* feedContext_ = nullptr;
};

/// One list per kind, found by record class.
class RecordLists {
 public:
  template <class Record>
  RecordList<Record>& Of() {
    return std::get<RecordList<Record>>(lists_);
  }
  template <class Record>
  const RecordList<Record>& Of() const {
    return std::get<RecordList<Record>>(lists_);
  }

  /// As the lists' own, for the one that has a feed.
  bool TakeFed() {
    return std::apply([](auto&... list) { return (list.TakeFed() && ...); }, lists_);
  }
  bool DropFed() const {
    return std::apply([](const auto&... list) { return (list.DropFed() && ...); }, lists_);
  }

 private:
  std::tuple<RecordList<PartInformation>, RecordList<ToolInformation>, RecordList<MaterialInfomation>,
             RecordList<ShtInfo>, RecordList<PrtInfo>, RecordList<MatAmncITInfo>, RecordList<MatLibraryInfo>,
             RecordList<JobProgressInfo>>
      lists_;
};
