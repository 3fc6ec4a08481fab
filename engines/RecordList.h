#pragma once

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

/// The records of one kind that an engine holds: built by an import (the engine's own) or staged for an
/// export (held together with the manager that attached them). All of them go with the list.
template <class Record>
class RecordList {
 public:
  RecordList();
  ~RecordList();
  RecordList(const RecordList&) = delete;
  RecordList& operator=(const RecordList&) = delete;

  /// Takes a record that the engine built.
  void Append(std::unique_ptr<Record> record);

  /// Takes a share in a record that a host attached. The library owns it from now on.
  void Stage(std::shared_ptr<qv::AttachedRecord> record);

  std::size_t Size() const { return records_.size(); }
  Record* operator[](std::size_t rank) const { return records_[rank]; }
  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }
  void Clear();

 private:
  std::vector<Record*> records_;
  std::vector<std::unique_ptr<Record>> built_;
  std::vector<std::shared_ptr<qv::AttachedRecord>> staged_;
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

 private:
  std::tuple<RecordList<PartInformation>, RecordList<ToolInformation>, RecordList<MaterialInfomation>,
             RecordList<ShtInfo>, RecordList<PrtInfo>, RecordList<MatAmncITInfo>, RecordList<MatLibraryInfo>,
             RecordList<JobProgressInfo>>
      lists_;
};
