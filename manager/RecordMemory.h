#pragma once

namespace qv {

/// Lets records take their blocks from the platform instead of the heap, which spends twice the size on an
/// aligned block and may keep what is given back. Once is enough; more does no harm.
void UseLargeBlocks() noexcept;

}  // namespace qv
