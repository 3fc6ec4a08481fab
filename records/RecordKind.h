#pragma once

#include <cstddef>
#include <tuple>
#include <type_traits>

class JobProgressInfo;
class MatAmncITInfo;
class MatLibraryInfo;
class MaterialInfomation;
class PartInformation;
class PrtInfo;
class ShtInfo;
class ToolInformation;

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

namespace qv {

/// Something for each record class, in the order of RecordKind.
template <template <class Record> class Of>
using ForEachRecordClass =
    std::tuple<Of<PartInformation>, Of<ToolInformation>, Of<MaterialInfomation>, Of<ShtInfo>, Of<PrtInfo>,
               Of<MatAmncITInfo>, Of<MatLibraryInfo>, Of<JobProgressInfo>>;

/// Where the class stands among them; does not compile for any other class.
template <class Record, std::size_t Index = 0>
constexpr std::size_t RecordClassIndex() {
  using There = std::tuple_element_t<Index, ForEachRecordClass<std::add_pointer_t>>;
  if constexpr (std::is_same_v<There, Record*>)
    return Index;
  else
    return RecordClassIndex<Record, Index + 1>();
}

}  // namespace qv

/// The kind of a record class.
template <class Record>
inline constexpr RecordKind kRecordKindOf = static_cast<RecordKind>(qv::RecordClassIndex<Record>());
