#include "platform/InvalidParameter.h"

#include <cstdio>
#include <cstdlib>

namespace qv {

void InvalidParameter(const char* what) {
  std::fprintf(stderr, "QVAssemblyFile: invalid parameter: %s\n", what);
  std::abort();
}

}  // namespace qv
