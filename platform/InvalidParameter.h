#pragma once

namespace qv {

/// The runtime's invalid-parameter failure: a caller error that ends the process, after the runtime's handler
/// (on Windows one that the host may have set) has been called. Does not return.
[[noreturn]] void InvalidParameter(const char* what);

}  // namespace qv
