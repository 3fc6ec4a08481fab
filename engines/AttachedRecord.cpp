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
  Registry& registry = TheRegistry();
  const std::lock_guard lock(registry.mutex);
  std::weak_ptr<AttachedRecord>& known = registry.records[record];
  // An address may by now hold a record of another kind: the host deletes what was never exported.
  if (auto attached = known.lock(); attached != nullptr && attached->deleter_ == deleter) return attached;
  std::shared_ptr<AttachedRecord> attached(new AttachedRecord(record, deleter));
  known = attached;
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
