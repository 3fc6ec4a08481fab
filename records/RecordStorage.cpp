#include <QVAssemblyFile/RecordStorage.h>

#include <new>

namespace qv {

void* AllocateRecord(std::size_t size) { return ::operator new(size); }
void* AllocateRecord(std::size_t size, const std::nothrow_t&) noexcept {
  return ::operator new(size, std::nothrow);
}
void FreeRecord(void* record) noexcept { ::operator delete(record); }

}  // namespace qv
