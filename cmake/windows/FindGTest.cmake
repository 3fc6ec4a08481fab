# GoogleTest is built from Debian's sources: there is no package of it for Windows.

include(FindPackageHandleStandardArgs)
find_path(GTest_SOURCES CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(GTest_SOURCES)

if(GTest_SOURCES AND NOT TARGET GTest::gtest)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_SHARED_LIBS OFF)
  add_subdirectory(${GTest_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  foreach(name gtest gtest_main gmock gmock_main)
    if(NOT TARGET GTest::${name})
      add_library(GTest::${name} ALIAS ${name})
    endif()
  endforeach()
endif()
find_package_handle_standard_args(GTest REQUIRED_VARS GTest_SOURCES)
