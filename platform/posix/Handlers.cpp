#include "platform/Handlers.h"

#include <cstdio>
#include <cstdlib>

namespace qv {

void ShowPlatformMessage(const char* text) { std::fprintf(stderr, "%s\n", text); }

void InvalidParameter(const char* what) {
  std::fprintf(stderr, "QVAssemblyFile: invalid parameter: %s\n", what);
  std::abort();
}

}  // namespace qv
