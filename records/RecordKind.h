#pragma once

#include <array>
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
