#pragma once

#include <memory>

namespace qv {

/// One record that a host attached for export. It is the host's until TakeOver(); from then on it is deleted
/// with the last share in it. The same record attached twice, to one manager or to several, is one
/// AttachedRecord.
class AttachedRecord {
 public:
  template <class Record>
  static std::shared_ptr<AttachedRecord> Of(Record* record) {
    return Of(record, [](void* pointer) { delete static_cast<Record*>(pointer); });
  }

  ~AttachedRecord();
  AttachedRecord(const AttachedRecord&) = delete;
  AttachedRecord& operator=(const AttachedRecord&) = delete;

  void* Pointer() const { return record_; }

  /// The library owns the record from now on.
  void TakeOver() { owned_ = true; }

 private:
  using Deleter = void (*)(void* record);

  AttachedRecord(void* record, Deleter deleter) : record_(record), deleter_(deleter) {}
  static std::shared_ptr<AttachedRecord> Of(void* record, Deleter deleter);

  void* record_;
  Deleter deleter_;
  bool owned_ = false;
};

}  // namespace qv
