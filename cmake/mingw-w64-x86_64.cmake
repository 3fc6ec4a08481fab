# Builds for 64-bit Windows with Debian's cross compiler, the variant whose threads are those of POSIX: the other one
# has no std::mutex.

set(CMAKE_SYSTEM_NAME Windows)
if(NOT QV_TRIPLET)
  set(CMAKE_SYSTEM_PROCESSOR x86_64)
  set(QV_TRIPLET x86_64-w64-mingw32)
endif()
set(CMAKE_C_COMPILER ${QV_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QV_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${QV_TRIPLET}-windres)

# Only programs come from this machine. Its headers are for another platform, even those of header-only libraries.
set(CMAKE_FIND_ROOT_PATH /usr/${QV_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
