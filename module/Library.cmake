# What makes the library's file: the names that it exports, and on Windows its version resource. Include it after all
# programs are made.

set(QV_EXPORTS_LINUX ${PROJECT_SOURCE_DIR}/module/exports-linux.map)
set(QV_EXPORTS_WINDOWS ${PROJECT_SOURCE_DIR}/module/exports-windows.def)

# QVAssemblyFile.dll carries the C++ runtime, so that a host of the C interface needs nothing beside it. C++ hosts share
# their runtime with the classes, as exceptions and containers cross: these are in QVAssemblyFileCpp.dll, to which
# QVAssemblyFile.dll forwards their names. It is loaded only for hosts that import one of them.
#
# On 32 bits there is the C interface alone. Its functions are __stdcall, which VBA and others call by their plain names:
# those are exported, and the import libraries lead the decorated names of C to them.
if(WIN32)
  # qv_exports(TARGET LINE...): the target exports these.
  function(qv_exports target)
    list(JOIN ARGN "\n" lines)
    set(definition ${PROJECT_BINARY_DIR}/module/${target}.def)
    file(CONFIGURE OUTPUT ${definition} CONTENT "EXPORTS\n${lines}\n")
    target_sources(${target} PRIVATE ${definition} ${PROJECT_SOURCE_DIR}/module/windows/DllMain.cpp)
  endfunction()

  set(decorated_names ${PROJECT_SOURCE_DIR}/module/exports-windows32.def)
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY
               CMAKE_CONFIGURE_DEPENDS ${QV_EXPORTS_WINDOWS} ${decorated_names})
  if(QV_HAS_CPP_DLL)
    file(STRINGS ${QV_EXPORTS_WINDOWS} classes REGEX "_Z")
    list(TRANSFORM classes STRIP)
    list(TRANSFORM classes REPLACE "(.+)" "\\1 = QVAssemblyFileCpp.\\1" OUTPUT_VARIABLE forwarders)
    qv_exports(QVAssemblyFileCpp ${classes})
    add_dependencies(QVAssemblyFile QVAssemblyFileCpp)
    file(STRINGS ${QV_EXPORTS_WINDOWS} imported REGEX "qva_")
    qv_exports(QVAssemblyFile ${imported} ${forwarders})
    set(machine i386:x86-64)
  else()
    file(STRINGS ${decorated_names} imported REGEX "qva_")
    list(TRANSFORM imported STRIP)
    list(TRANSFORM imported REPLACE "(.+)(@.+)" "\\1 = \\1\\2" OUTPUT_VARIABLE exported)
    qv_exports(QVAssemblyFile ${exported})
    set(machine i386)
  endif()
  target_link_options(QVAssemblyFile PRIVATE -static)

  # For Microsoft's linker, which cannot use the C++ names; and on 32 bits for every linker.
  find_program(QV_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 REQUIRED)
  set(definition ${PROJECT_BINARY_DIR}/module/microsoft/QVAssemblyFile.def)
  list(JOIN imported "\n" lines)
  file(CONFIGURE OUTPUT ${definition} CONTENT "LIBRARY QVAssemblyFile.dll\nEXPORTS\n${lines}\n")
  set(import_library ${PROJECT_BINARY_DIR}/QVAssemblyFile.lib)
  set(make_import_library ${QV_LLVM_DLLTOOL} --kill-at -m ${machine} -d ${definition} -l)
  add_custom_command(OUTPUT ${import_library} DEPENDS ${definition} COMMAND ${make_import_library} ${import_library})
  add_custom_target(microsoft_import_library ALL DEPENDS ${import_library})
  install(FILES ${import_library} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  if(QV_HAS_CPP_DLL)
    install(FILES ${definition} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  else()  # where the names lead is in no definition that every linker reads alike
    add_custom_command(TARGET QVAssemblyFile POST_BUILD COMMAND ${make_import_library} $<TARGET_LINKER_FILE:QVAssemblyFile>)
  endif()
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
  if(QV_HAS_CPP_DLL)
    qv_version_resource(QVAssemblyFileCpp "C++ classes of QVAssemblyFile")
  endif()
  if(TARGET qvassembly)
    qv_version_resource(qvassembly "Command line of QVAssemblyFile")
    target_sources(qvassembly PRIVATE ${PROJECT_SOURCE_DIR}/module/windows/Program.rc)
  endif()
endif()
