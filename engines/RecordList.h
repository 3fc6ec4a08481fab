#pragma once

#include "engines/AttachedRecord.h"
#include "platform/LargeBlock.h"
#include "records/Records.h"

#include <cstddef>
#include <memory>
#include <new>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// The records of one kind that an engine holds: built by an import (the engine's own, in blocks of the
/// list's) or staged for an export (held together with the manager that attached them). All of them go with
/// the list.
template <class Record>
class RecordList {
 public:
  RecordList() = default;
  ~RecordList() { Clear(); }
  RecordList(const RecordList&) = delete;
  RecordList& operator=(const RecordList&) = delete;

  /// A fresh record for the engine to fill. It becomes the last one of the list with Keep(); without, it is
  /// gone with the next Begin().
  Record& Begin() {
    DropBegun();
    if (next_ == blockEnd_) AddBlock();
    new (next_) Record;
    hasBegun_ = true;
    return *next_;
  }
  void Keep() {
    hasBegun_ = false;
    ++next_;
    ++built_;
  }

  /// Takes a share in a record that a host attached. The library owns it from now on.
  void Stage(std::shared_ptr<qv::AttachedRecord> record) {
    staged_.push_back(std::move(record));
    staged_.back()->TakeOver();
  }

  std::size_t Size() const { return built_ + staged_.size(); }
  Record* operator[](std::size_t index) const {
    return index < built_ ? Built(index) : static_cast<Record*>(staged_[index - built_]->Pointer());
  }
  void Clear() {
    DropBegun();
    for (std::size_t index = 0; index < built_; ++index) std::destroy_at(Built(index));
    for (std::size_t block = 0; block < blocks_.size(); ++block) FreeBlock(blocks_[block], block == 0);
    built_ = 0;
    next_ = blockEnd_ = nullptr;
    blocks_.clear();
    staged_.clear();
  }

 private:
  // The first block is from the heap, which reuses it for one small file after another. The others are large,
  // so that what is left at their ends is nothing beside the records; what no record reaches is never
  // touched.
  static constexpr std::size_t kFirstBlockSize = std::size_t{2} << 20;
  static constexpr std::size_t kBlockSize = std::size_t{16} << 20;
  static constexpr std::size_t kInFirst = kFirstBlockSize / sizeof(Record);
  static constexpr std::size_t kInBlock = kBlockSize / sizeof(Record);
  Record* Built(std::size_t index) const {
    if (index < kInFirst) return blocks_.front() + index;
    const std::size_t later = index - kInFirst;
    return blocks_[1 + later / kInBlock] + later % kInBlock;
  }
  void AddBlock() {
    blocks_.reserve(blocks_.size() + 1);
    const bool isFirst = blocks_.empty();
    void* const block = isFirst ? ::operator new(kFirstBlockSize) : qv::AcquireLargeBlock(kBlockSize);
    if (block == nullptr) throw std::bad_alloc();
    next_ = static_cast<Record*>(block);
    blockEnd_ = next_ + (isFirst ? kInFirst : kInBlock);
    blocks_.push_back(next_);
  }
  static void FreeBlock(Record* block, bool isFirst) {
    isFirst ? ::operator delete(block) : qv::ReleaseLargeBlock(block, kBlockSize);
  }
  void DropBegun() {
    if (hasBegun_) std::destroy_at(next_);
    hasBegun_ = false;
  }

  std::vector<Record*> blocks_;
  Record* next_ = nullptr;  // the place for the next record, in the last block
  Record* blockEnd_ = nullptr;
  std::size_t built_ = 0;
  bool hasBegun_ = false;
  std::vector<std::shared_ptr<qv::AttachedRecord>> staged_;
};

namespace qv {

/// Calls `visit` with std::type_identity of the kind's record class, and returns what it returns.
template <std::size_t Index = 0, class Visit>
auto VisitRecordClass(RecordKind kind, Visit visit) {
  if constexpr (Index + 1 < kRecordKindCount)
    if (static_cast<std::size_t>(kind) != Index) return VisitRecordClass<Index + 1>(kind, visit);
  return visit(std::tuple_element_t<Index, ForEachRecordClass<std::type_identity>>());
}

/// Makes an Of<Record> for the kind's class, which implements the interface; null where IsCarried(kind) is
/// false.
template <class Interface, template <class Record> class Of, auto IsCarried, class... Arguments>
std::unique_ptr<Interface> MakeForKind(RecordKind kind, Arguments&... arguments) {
  return VisitRecordClass(kind, [&]<class Record>(std::type_identity<Record>) -> std::unique_ptr<Interface> {
    if constexpr (IsCarried(kRecordKindOf<Record>)) return std::make_unique<Of<Record>>(arguments...);
    return nullptr;
  });
}

}  // namespace qv

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

  void Clear() {
    std::apply([](auto&... list) { (list.Clear(), ...); }, lists_);
  }

 private:
  qv::ForEachRecordClass<RecordList> lists_;
};
