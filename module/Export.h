#pragma once

#if __cplusplus < 202002L
#error "QVAssemblyFile needs C++20 (-std=c++20)"
#endif

/// Marks what a host may link against. Everything else stays hidden: the library is built with hidden
/// visibility on ELF, and on Windows the module's exports definition lists exactly these names.
#if defined(__ELF__)
#define QVASSEMBLY_API __attribute__((visibility("default")))
#else
#define QVASSEMBLY_API
#endif
