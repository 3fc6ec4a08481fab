#pragma once

namespace qv {

/// Lets records take their blocks from the platform instead of the heap: a million of them then costs a
/// fraction of the page faults. Once is enough; more does no harm.
void UseLargeBlocks() noexcept;

}  // namespace qv
