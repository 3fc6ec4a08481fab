# What the build for Windows has of its own. Include it before any target is made.

list(PREPEND CMAKE_MODULE_PATH ${PROJECT_SOURCE_DIR}/cmake/windows)

# Libraries of headers alone come from this machine, each linked into a root of the build's own: the folder that they
# stand in also holds headers of this machine's platform.
set(QV_HEADER_ROOT ${PROJECT_BINARY_DIR}/header-only)
file(MAKE_DIRECTORY ${QV_HEADER_ROOT}/include)
foreach(folder CLI nlohmann rapidjson)
  if(EXISTS /usr/include/${folder})
    file(CREATE_LINK /usr/include/${folder} ${QV_HEADER_ROOT}/include/${folder} SYMBOLIC)
  endif()
endforeach()
list(APPEND CMAKE_FIND_ROOT_PATH ${QV_HEADER_ROOT})

enable_language(RC)
add_link_options(LINKER:--no-insert-timestamp)  # the same sources give the same bytes
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT WINVER=0x0601 _WIN32_WINNT=0x0601)

# QVAssemblyFile.dll, not libQVAssemblyFile.dll.
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")

# Programs find the library and the C++ runtime beside themselves. The runtime is shared, so that exceptions and
# containers may cross the library's boundary. On 32 bits there is the C interface alone, and nothing is shared.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(QV_RUNTIME_LIBRARIES "")
set(runtime "")
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(QV_HAS_CPP_DLL ON)
  set(runtime libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
else()
  add_link_options(-static)
endif()
foreach(name IN LISTS runtime)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
                  OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
  set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name})
  if(NOT EXISTS ${copy})
    file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    execute_process(COMMAND ${CMAKE_STRIP} -o ${copy} ${path} COMMAND_ERROR_IS_FATAL ANY)
  endif()
  list(APPEND QV_RUNTIME_LIBRARIES ${copy})
endforeach()

# Programs of this build run under Wine, in a Windows of the build tree's own.
set(QV_WINE_PREFIX ${PROJECT_BINARY_DIR}/wineprefix)
set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/cmake/windows/wine-run ${QV_WINE_PREFIX})
