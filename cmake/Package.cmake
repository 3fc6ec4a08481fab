# What people without a compiler for the sources get, made by cpack in the build tree: Debian packages, and for Windows
# an archive.

set(CPACK_STRIP_FILES ON)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/package)

if(NOT WIN32)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGE_CONTACT "The developers of QVAssemblyFile")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_COMPONENTS_ALL "")

  # qv_package(COMPONENT NAME SECTION DESCRIPTION): the package that a component of the installation becomes.
  macro(qv_package component name section description)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} key)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${description}")
  endmacro()
  qv_package(library libqvassemblyfile0 libs "${PROJECT_DESCRIPTION}: shared library")
  qv_package(development libqvassemblyfile-dev libdevel "${PROJECT_DESCRIPTION}: headers for C and C++")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libqvassemblyfile0 (= ${PROJECT_VERSION})")
  # Whoever asks for the dialog or for workbooks without these is told that they are missing.
  set(recommended "")
  if(TARGET QVAssemblyFileDialog)
    qv_package(dialog qvassembly-dialog utils "${PROJECT_DESCRIPTION}: format option dialog")
    list(APPEND recommended "qvassembly-dialog (= ${PROJECT_VERSION})")
  endif()
  if(TARGET QVAssemblyFileCalc)
    qv_package(calc qvassembly-calc utils "${PROJECT_DESCRIPTION}: workbooks through LibreOffice")
    set(CPACK_DEBIAN_CALC_PACKAGE_DEPENDS "libreoffice-calc-nogui | libreoffice-calc")
    list(APPEND recommended "qvassembly-calc (= ${PROJECT_VERSION})")
  endif()
  list(JOIN recommended ", " recommended)
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "${recommended}")
  if(TARGET qvassembly)
    qv_package(program qvassembly utils "${PROJECT_DESCRIPTION}: command line")
    set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "${recommended}")
  endif()
  include(CPack)
  return()
endif()

set(CPACK_GENERATOR ZIP)
if(QV_HAS_CPP_DLL)
  set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-windows-x86_64)
else()
  set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-windows-i686)
endif()

install(FILES ${QV_RUNTIME_LIBRARIES} DESTINATION ${CMAKE_INSTALL_BINDIR})

# Windows has no man; the manual is a page for a browser there.
if(TARGET qvassembly)
  find_program(QV_MANDOC mandoc REQUIRED)
  set(manual ${PROJECT_BINARY_DIR}/qvassembly.html)
  add_custom_command(OUTPUT ${manual}
                     COMMAND ${QV_MANDOC} -T html ${PROJECT_SOURCE_DIR}/docs/man/qvassembly.1 > ${manual}
                     DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/qvassembly.1)
  add_custom_target(manual ALL DEPENDS ${manual})
  install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
endif()

# What is shipped that others wrote, under the terms that their Debian packages state: the C++ runtime, the thread
# library, and what qvassembly holds.
set(licence_dir ${CMAKE_INSTALL_DOCDIR}/licences)
foreach(row gcc-mingw-w64-base=gcc-runtime mingw-w64-x86-64-dev=mingw-w64 libcli11-dev=CLI11
            rapidjson-dev=RapidJSON)
  string(REPLACE "=" ";" row ${row})
  list(GET row 0 package)
  list(GET row 1 name)
  set(copyright /usr/share/doc/${package}/copyright)
  if(EXISTS ${copyright})
    install(FILES ${copyright} DESTINATION ${licence_dir} RENAME ${name}.txt)
  else()
    message(WARNING "${copyright} is missing, so a package of this build would lack the licence of ${name}")
  endif()
endforeach()
install(FILES /usr/share/common-licenses/GPL-3 DESTINATION ${licence_dir} RENAME GPL-3.txt OPTIONAL)

include(CPack)
