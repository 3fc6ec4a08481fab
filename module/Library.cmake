# What makes the library's file: the names that it exports, and on Windows its version resource. Include it after all
# programs are made.

set(QV_EXPORTS_LINUX ${PROJECT_SOURCE_DIR}/module/exports-linux.map)
set(QV_EXPORTS_WINDOWS ${PROJECT_SOURCE_DIR}/module/exports-windows.def)

if(WIN32)
  target_sources(QVAssemblyFile PRIVATE ${QV_EXPORTS_WINDOWS} ${PROJECT_SOURCE_DIR}/module/windows/DllMain.cpp)
elseif(CMAKE_EXECUTABLE_FORMAT STREQUAL ELF)
  target_link_options(QVAssemblyFile PRIVATE LINKER:--version-script=${QV_EXPORTS_LINUX})
  set_property(TARGET QVAssemblyFile APPEND PROPERTY LINK_DEPENDS ${QV_EXPORTS_LINUX})
endif()

# qv_version_resource(TARGET DESCRIPTION): what the properties of the target's file show.
function(qv_version_resource target description)
  get_target_property(type ${target} TYPE)
  set(name ${target})
  if(type STREQUAL SHARED_LIBRARY)
    set(file_type VFT_DLL)
    set(file_name ${target}${CMAKE_SHARED_LIBRARY_SUFFIX})
  else()
    set(file_type VFT_APP)
    set(file_name ${target}${CMAKE_EXECUTABLE_SUFFIX})
  endif()
  set(resource ${PROJECT_BINARY_DIR}/${target}-version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/module/windows/Version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()

if(WIN32)
  qv_version_resource(QVAssemblyFile "${PROJECT_DESCRIPTION}")
  if(TARGET qvassembly)
    qv_version_resource(qvassembly "Command line of QVAssemblyFile")
    target_sources(qvassembly PRIVATE ${PROJECT_SOURCE_DIR}/module/windows/Program.rc)
  endif()
endif()
