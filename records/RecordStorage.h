#pragma once

#include <QVAssemblyFile/Export.h>

#include <cstddef>
#include <new>

namespace qv {

/// Memory for a record from the library's heap, so that host and library may delete what the other created,
/// on any thread. Throws std::bad_alloc. Free ignores null.
QVASSEMBLY_API void* AllocateRecord(std::size_t size);
QVASSEMBLY_API void FreeRecord(void* record) noexcept;

/// The same without an exception: null when memory runs out.
QVASSEMBLY_API void* AllocateRecord(std::size_t size, const std::nothrow_t&) noexcept;

}  // namespace qv

/// Gives a record class the library's heap whoever says new or delete. The other forms of new stay usable.
#define QVASSEMBLY_RECORD_STORAGE                                                                         \
  static void* operator new(std::size_t size) { return ::qv::AllocateRecord(size); }                      \
  static void* operator new[](std::size_t size) { return ::qv::AllocateRecord(size); }                    \
  static void* operator new(std::size_t size, const std::nothrow_t& quietly) noexcept {                   \
    return ::qv::AllocateRecord(size, quietly);                                                           \
  }                                                                                                       \
  static void* operator new[](std::size_t size, const std::nothrow_t& quietly) noexcept {                 \
    return ::qv::AllocateRecord(size, quietly);                                                           \
  }                                                                                                       \
  static void* operator new(std::size_t, void* place) noexcept { return place; }                          \
  static void* operator new[](std::size_t, void* place) noexcept { return place; }                        \
  static void operator delete(void* record) noexcept { ::qv::FreeRecord(record); }                        \
  static void operator delete[](void* records) noexcept { ::qv::FreeRecord(records); }                    \
  static void operator delete(void* record, const std::nothrow_t&) noexcept { ::qv::FreeRecord(record); } \
  static void operator delete[](void* records, const std::nothrow_t&) noexcept {                          \
    ::qv::FreeRecord(records);                                                                            \
  }                                                                                                       \
  static void operator delete(void*, void*) noexcept {}                                                   \
  static void operator delete[](void*, void*) noexcept {}

namespace qv {

/// Specialised for each kind of record by the one column table that reads and writes its fields.
template <class Record>
struct ColumnTable;

}  // namespace qv
