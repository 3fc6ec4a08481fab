# The archive that people without a compiler for the sources get: scripts/build windows, then cpack in the build tree.

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-windows-x86_64)
set(CPACK_STRIP_FILES ON)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/package)

install(FILES ${QV_RUNTIME_LIBRARIES} DESTINATION ${CMAKE_INSTALL_BINDIR})

# What is shipped that others wrote, under the terms that their Debian packages state: the C++ runtime, the thread
# library, and what qvassembly holds.
set(licence_dir ${CMAKE_INSTALL_DOCDIR}/licences)
foreach(row gcc-mingw-w64-base=gcc-runtime mingw-w64-x86-64-dev=mingw-w64 libcli11-dev=CLI11
            nlohmann-json3-dev=nlohmann-json)
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
