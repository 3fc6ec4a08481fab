# How tests are added. A test bears the name of its build tree, so that one run over several trees tells them apart, and
# has a temporary folder of its own, so that tests may run side by side.

get_filename_component(QV_TREE ${PROJECT_BINARY_DIR} NAME)

# The tests' Windows is up before the first of them and ended after the last.
get_property(has_wine GLOBAL PROPERTY QV_HAS_WINE_FIXTURE)
if(CMAKE_CROSSCOMPILING AND NOT has_wine)
  set_property(GLOBAL PROPERTY QV_HAS_WINE_FIXTURE ON)
  add_test(NAME ${QV_TREE}.wine-start COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --start)
  add_test(NAME ${QV_TREE}.wine-stop COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --stop)
  set_tests_properties(${QV_TREE}.wine-start PROPERTIES FIXTURES_SETUP ${QV_TREE}.wine)
  set_tests_properties(${QV_TREE}.wine-stop PROPERTIES FIXTURES_CLEANUP ${QV_TREE}.wine)
endif()

# qv_test(NAME SOURCES file... [LIBRARIES target...]): a program of GoogleTest cases that looks inside the library.
function(qv_test name)
  qv_add_test_program(${name} qv_core ${ARGN})
endfunction()

# qv_host_test(NAME SOURCES file... [LIBRARIES target...]): one that sees what a host sees and links the shared library.
function(qv_host_test name)
  qv_add_test_program(${name} QVAssemblyFile ${ARGN})
endfunction()

# What reads the tests' case files and tables.
function(qv_use_test_files target)
  if(NOT TARGET qv_test_files)
    add_library(qv_test_files STATIC ${PROJECT_SOURCE_DIR}/tests/support/CaseFile.cpp)
    target_include_directories(qv_test_files PUBLIC ${PROJECT_SOURCE_DIR}/tests)
    set_property(SOURCE ${PROJECT_SOURCE_DIR}/tests/support/CaseFile.cpp TARGET_DIRECTORY qv_test_files
                 PROPERTY COMPILE_DEFINITIONS QV_TESTS="${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(qv_test_files PUBLIC GTest::gtest_main)
    # Compiled once for all test programs, which must be compiled with the same options then.
    target_precompile_headers(qv_test_files PRIVATE <gtest/gtest.h> <algorithm> <map> <random> <string> <vector>)
    set_target_properties(qv_test_files PROPERTIES POSITION_INDEPENDENT_CODE OFF)
    target_compile_options(qv_test_files PRIVATE -O0 $<$<NOT:$<PLATFORM_ID:Windows>>:-fPIE>)
    qv_warnings(qv_test_files)
  endif()
  target_link_libraries(${target} PRIVATE qv_test_files)
endfunction()

function(qv_add_test_program name library)
  cmake_parse_arguments(TEST "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name}_tests ${TEST_SOURCES})
  target_link_libraries(${name}_tests PRIVATE ${TEST_LIBRARIES} ${library})
  qv_use_test_files(${name}_tests)
  target_compile_options(${name}_tests PRIVATE -O0)  # compiling a test takes longer than running it
  target_precompile_headers(${name}_tests REUSE_FROM qv_test_files)
  qv_warnings(${name}_tests)
  add_test(NAME ${QV_TREE}.${name} COMMAND ${name}_tests)
  qv_give_temporary_folder(${name})
endfunction()

# qv_script_test(NAME script [argument...]): a bash script; 77 means that it cannot be run here.
function(qv_script_test name script)
  add_test(NAME ${QV_TREE}.${name} COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
  set_tests_properties(${QV_TREE}.${name} PROPERTIES SKIP_RETURN_CODE 77)
  qv_give_temporary_folder(${name})
endfunction()

function(qv_give_temporary_folder name)
  set(folder ${PROJECT_BINARY_DIR}/tmp/${name})
  file(MAKE_DIRECTORY ${folder})
  set_property(TEST ${QV_TREE}.${name} APPEND PROPERTY ENVIRONMENT
    TMPDIR=${folder} TEST_TMPDIR=${folder} XDG_CONFIG_HOME=${folder}/config)  # none writes into a user's own settings
  if(CMAKE_CROSSCOMPILING)
    set_property(TEST ${QV_TREE}.${name} PROPERTY FIXTURES_REQUIRED ${QV_TREE}.wine)
  endif()
endfunction()

# A locale with a decimal comma for tests that a host's locale must not disturb, made in the build tree.
function(qv_make_comma_locale)
  set(QV_LOCALES ${PROJECT_BINARY_DIR}/locales)
  find_program(QV_LOCALEDEF localedef)
  if(QV_LOCALEDEF AND NOT CMAKE_CROSSCOMPILING AND NOT EXISTS ${QV_LOCALES}/de_DE.UTF-8)
    file(MAKE_DIRECTORY ${QV_LOCALES})
    execute_process(COMMAND ${QV_LOCALEDEF} -i de_DE -f UTF-8 ${QV_LOCALES}/de_DE.UTF-8 OUTPUT_QUIET ERROR_QUIET)
  endif()
endfunction()
