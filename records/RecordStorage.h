#pragma once

#include <QVAssemblyFile/Export.h>

#include <cstddef>
#include <new>

namespace qv {

/// Storage for records, shared by host and library so that either may delete what the other created. Throws
/// std::bad_alloc. Safe to call from any thread.
QVASSEMBLY_API void* AllocateRecord(std::size_t size);
QVASSEMBLY_API void FreeRecord(void* record) noexcept;

}  // namespace qv

/// Gives a record class the library's storage whoever says new or delete. The placement form stays usable.
#define QVASSEMBLY_RECORD_STORAGE                                                      \
  static void* operator new(std::size_t size) { return ::qv::AllocateRecord(size); }   \
  static void* operator new[](std::size_t size) { return ::qv::AllocateRecord(size); } \
  static void* operator new(std::size_t, void* place) noexcept { return place; }       \
  static void operator delete(void* record) noexcept { ::qv::FreeRecord(record); }     \
  static void operator delete[](void* records) noexcept { ::qv::FreeRecord(records); } \
  static void operator delete(void*, void*) noexcept {}

namespace qv {

/// Specialised for each kind of record by the one column table that reads and writes its fields.
template <class Record>
struct ColumnTable;

}  // namespace qv
