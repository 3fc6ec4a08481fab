#pragma once

#include <cstddef>

/// The kinds of record that an assembly file may list.
enum class RecordKind {
  Parts,
  Tools,
  Materials,
  Sheets,
  PartPrograms,
  MaterialInventory,  ///< import only
  MaterialLibrary,    ///< import only
  JobProgress,        ///< export only
};

inline constexpr std::size_t kRecordKindCount = 8;

/// Whether there are files of the kind that are read, and that are written.
constexpr bool IsImported(RecordKind kind) { return kind != RecordKind::JobProgress; }
constexpr bool IsExported(RecordKind kind) {
  return kind != RecordKind::MaterialInventory && kind != RecordKind::MaterialLibrary;
}
