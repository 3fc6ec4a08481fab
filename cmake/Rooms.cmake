# The rooms of the house. A room is a folder at the root; qv_room() hands its sources to the library and names the
# headers that a host may include as <QVAssemblyFile/Name.h>.

set(QV_FORWARD_DIR ${PROJECT_BINARY_DIR}/include)

function(qv_begin_rooms)
  add_library(qv_objects OBJECT)
  target_include_directories(qv_objects PUBLIC ${PROJECT_SOURCE_DIR} ${QV_FORWARD_DIR})
  target_compile_features(qv_objects PUBLIC cxx_std_20)
  qv_warnings(qv_objects)
  set_property(GLOBAL PROPERTY QV_PUBLIC_HEADERS "")
endfunction()

# qv_room(SOURCES file... [PUBLIC_HEADERS file...] [LIBRARIES target...] [RESOURCES file...])
function(qv_room)
  cmake_parse_arguments(ROOM "" "" "SOURCES;PUBLIC_HEADERS;LIBRARIES;RESOURCES" ${ARGN})
  foreach(source IN LISTS ROOM_SOURCES)
    target_sources(qv_objects PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${source})
  endforeach()
  foreach(header IN LISTS ROOM_PUBLIC_HEADERS)
    get_filename_component(name ${header} NAME)
    # A forwarding header, so that the tree is included exactly as an installed package is.
    file(CONFIGURE OUTPUT ${QV_FORWARD_DIR}/QVAssemblyFile/${name}
         CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\"\n")
    set_property(GLOBAL APPEND PROPERTY QV_PUBLIC_HEADERS ${CMAKE_CURRENT_SOURCE_DIR}/${header})
  endforeach()
  foreach(resource IN LISTS ROOM_RESOURCES)
    set_property(GLOBAL APPEND PROPERTY QV_RESOURCES ${CMAKE_CURRENT_SOURCE_DIR}/${resource})
  endforeach()
  if(ROOM_LIBRARIES)
    target_link_libraries(qv_objects PRIVATE ${ROOM_LIBRARIES})
    set_property(GLOBAL APPEND PROPERTY QV_PRIVATE_LIBRARIES ${ROOM_LIBRARIES})
  endif()
endfunction()

# QVAssemblyFile is what a host links; on Windows QVAssemblyFileCpp has its C++ classes (module/Library.cmake). qv_core holds the same objects for programs that look inside: the tests, the
# benchmarks and the command line.
function(qv_finish_library)
  get_property(libraries GLOBAL PROPERTY QV_PRIVATE_LIBRARIES)
  get_property(resources GLOBAL PROPERTY QV_RESOURCES)
  add_library(QVAssemblyFile SHARED $<TARGET_OBJECTS:qv_objects> ${resources})
  target_include_directories(QVAssemblyFile PRIVATE ${PROJECT_SOURCE_DIR})
  set_target_properties(QVAssemblyFile PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0)
  target_include_directories(QVAssemblyFile INTERFACE $<BUILD_INTERFACE:${QV_FORWARD_DIR}>
                                                      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(QVAssemblyFile INTERFACE cxx_std_20)
  target_link_libraries(QVAssemblyFile PRIVATE ${libraries})
  add_library(QVAssemblyFile::QVAssemblyFile ALIAS QVAssemblyFile)
  if(QV_HAS_CPP_DLL)
    add_library(QVAssemblyFileCpp SHARED $<TARGET_OBJECTS:qv_objects> ${resources})
    target_include_directories(QVAssemblyFileCpp PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(QVAssemblyFileCpp PRIVATE ${libraries})
  endif()

  add_library(qv_core STATIC $<TARGET_OBJECTS:qv_objects>)
  target_include_directories(qv_core PUBLIC ${PROJECT_SOURCE_DIR} ${QV_FORWARD_DIR})
  target_link_libraries(qv_core PUBLIC ${libraries})
  # Such programs have the functions of the C interface in themselves, and not in a DLL.
  target_compile_definitions(qv_core INTERFACE QVASSEMBLY_BUILD)
  # No linker takes resources out of an archive, so a program that holds the objects compiles them itself.
  target_sources(qv_core INTERFACE ${resources})
endfunction()

function(qv_warnings target)
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow;-Werror>)
endfunction()
