#pragma once

#include "engines/columns/RecordFields.h"

#include <QVAssemblyFile/RecordKind.h>

#include <string>

namespace qv {

/// What is asked of a kind.
enum class KindUse { Import, Export, Convert, Any };

/// The kind by its name. Throws UsageError for an unknown name, and for a kind that cannot be used so.
RecordKind KindForUse(const std::string& name, KindUse use);

/// The names of all kinds that can be used so: "parts, tools, …".
std::string KindNames(KindUse use);

}  // namespace qv
