#include <QVAssemblyFile/RecordStorage.h>

#include "records/RecordPool.h"

// Under AddressSanitizer every record is an allocation of its own, so that the use of a deleted one is found.
#if defined(__SANITIZE_ADDRESS__)
#define QV_RECORDS_APART 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QV_RECORDS_APART 1
#endif
#endif
#if !defined(QV_RECORDS_APART)
#define QV_RECORDS_APART 0
#endif

namespace qv {

namespace {

constinit RecordPool pool;

}  // namespace

void SetBlockSource(const BlockSource& source) noexcept { pool.SetSource(source); }

void* AllocateRecord(std::size_t size, const std::nothrow_t& quietly) noexcept {
  return QV_RECORDS_APART ? ::operator new(size, quietly) : pool.Allocate(size);
}

void* AllocateRecord(std::size_t size) {
  void* record = AllocateRecord(size, std::nothrow);
  if (record == nullptr) throw std::bad_alloc();
  return record;
}

void FreeRecord(void* record) noexcept {
  QV_RECORDS_APART ? ::operator delete(record) : RecordPool::Free(record);
}

}  // namespace qv
