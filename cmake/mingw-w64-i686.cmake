# Builds for 32-bit Windows. Numbers are computed as on 64 bits, and hosts whose stack is aligned to 4 bytes are served.

set(QV_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_FLAGS_INIT "-march=pentium4 -mfpmath=sse -mstackrealign")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake)
