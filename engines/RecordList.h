#pragma once

#include "records/RecordKind.h"

#include <cstddef>
#include <memory>
#include <tuple>
#include <type_traits>
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
/// the list.
template <class Record>
class RecordList {
 public:
  RecordList();
  ~RecordList();
  RecordList(const RecordList&) = delete;
  RecordList& operator=(const RecordList&) = delete;

  /// A fresh record for the engine to fill. It becomes the last one of the list with Keep(); without, it is
  /// gone with the next Begin().
  Record& Begin();
  void Keep();

  /// Takes a share in a record that a host attached. The library owns it from now on.
  void Stage(std::shared_ptr<qv::AttachedRecord> record);

  std::size_t Size() const { return built_ + staged_.size(); }
  Record* operator[](std::size_t index) const {
    return index < built_ ? Built(index) : Staged(index - built_);
  }
  void Clear();

  class Iterator {
   public:
    Iterator(const RecordList& list, std::size_t index) : list_(&list), index_(index) {}
    Record* operator*() const { return (*list_)[index_]; }
    Iterator& operator++() {
      ++index_;
      return *this;
    }
    bool operator==(const Iterator& other) const { return index_ == other.index_; }

   private:
    const RecordList* list_;
    std::size_t index_;
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
  Record* Built(std::size_t index) const {
    if (index < kInFirst) return blocks_.front() + index;
    const std::size_t later = index - kInFirst;
    return blocks_[1 + later / kInBlock] + later % kInBlock;
  }
  Record* Staged(std::size_t index) const;
  void AddBlock();
  static void FreeBlock(Record* block, bool isFirst);
  void DropBegun();

  std::vector<Record*> blocks_;
  Record* next_ = nullptr;  // the place for the next record, in the last block
  Record* blockEnd_ = nullptr;
  std::size_t built_ = 0;
  bool hasBegun_ = false;
  std::vector<std::shared_ptr<qv::AttachedRecord>> staged_;
};

namespace qv {

/// Something for each record class, in the order of RecordKind.
template <template <class Record> class Of>
using ForEachRecordClass =
    std::tuple<Of<PartInformation>, Of<ToolInformation>, Of<MaterialInfomation>, Of<ShtInfo>, Of<PrtInfo>,
               Of<MatAmncITInfo>, Of<MatLibraryInfo>, Of<JobProgressInfo>>;

/// Calls `visit` with std::type_identity of the kind's record class, and returns what it returns.
template <std::size_t Index = 0, class Visit>
auto VisitRecordClass(RecordKind kind, Visit visit) {
  if constexpr (Index + 1 < kRecordKindCount)
    if (static_cast<std::size_t>(kind) != Index) return VisitRecordClass<Index + 1>(kind, visit);
  return visit(std::tuple_element_t<Index, ForEachRecordClass<std::type_identity>>());
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
