#pragma once

#include <QVAssemblyFile/CAssemblyFileMgr.h>

#include <cstddef>
#include <string_view>

namespace bench {

/// How the files of a kind are imported.
struct ImportKind {
  std::string_view name;
  bool (CAssemblyFileMgr::*import)(char*);
  int (CAssemblyFileMgr::*count)();
  std::size_t recordSize;
};

/// The kind that a format of the generated files is for; they are named KIND-DRESS. Throws std::out_of_range.
const ImportKind& KindOfFormat(std::string_view format);

}  // namespace bench
