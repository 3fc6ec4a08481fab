#include "platform/Handlers.h"

#include <cstdio>

namespace qv {

void ShowPlatformMessage(const char* text) { std::fprintf(stderr, "%s\n", text); }

}  // namespace qv
