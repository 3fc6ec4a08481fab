#include "engines/AttachedRecord.h"

#include <mutex>
#include <unordered_map>

namespace qv {
namespace {

/// Every attached record of the process by its address. Managers of different threads share it.
struct Registry {
  std::mutex mutex;
  std::unordered_map<void*, std::weak_ptr<AttachedRecord>> records;
};

// Never destroyed: managers may live in static objects that go later.
Registry& TheRegistry() {
  static Registry* const registry = new Registry;
  return *registry;
}

}  // namespace

std::shared_ptr<AttachedRecord> AttachedRecord::Of(void* record, Deleter deleter) {
  // The destructor takes the lock, so both must be released after it: a share that turns out to be the last
  // one, and a new one when memory runs out.
  Registry& registry = TheRegistry();
  std::shared_ptr<AttachedRecord> known;
  std::shared_ptr<AttachedRecord> attached(new AttachedRecord(record, deleter));
  const std::lock_guard lock(registry.mutex);
  std::weak_ptr<AttachedRecord>& entry = registry.records[record];
  known = entry.lock();
  // An address may by now hold a record of another kind: the host deletes what was never exported.
  if (known != nullptr && known->deleter_ == deleter) return known;
  entry = attached;
  return attached;
}

AttachedRecord::~AttachedRecord() {
  Registry& registry = TheRegistry();
  {
    const std::lock_guard lock(registry.mutex);
    const auto known = registry.records.find(record_);
    if (known != registry.records.end() && known->second.expired()) registry.records.erase(known);
  }
  if (owned_) deleter_(record_);
}

}  // namespace qv
