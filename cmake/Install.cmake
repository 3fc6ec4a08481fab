# What an installation holds: the library with its headers and package files, the command line with its manual and
# completion, and the documentation with the examples. The components are the Debian packages (Package.cmake).

include(CMakePackageConfigHelpers)

get_property(public_headers GLOBAL PROPERTY QV_PUBLIC_HEADERS)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QVAssemblyFile)

install(TARGETS QVAssemblyFile
        EXPORT QVAssemblyFileTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
if(QV_HAS_CPP_DLL)
  install(TARGETS QVAssemblyFileCpp RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
endif()
install(FILES ${public_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/QVAssemblyFile
        COMPONENT development)

install(EXPORT QVAssemblyFileTargets
        NAMESPACE QVAssemblyFile::
        DESTINATION ${package_dir}
        COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QVAssemblyFileConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/QVAssemblyFileConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
# Before 1.0 a new minor version may break hosts.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QVAssemblyFileConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QVAssemblyFileConfig.cmake
              ${PROJECT_BINARY_DIR}/QVAssemblyFileConfigVersion.cmake
        DESTINATION ${package_dir}
        COMPONENT development)

# The pkg-config file finds its prefix from where it stands, so that an installation may be moved.
file(RELATIVE_PATH pkgconfig_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${PROJECT_SOURCE_DIR}/cmake/QVAssemblyFile.pc.in ${PROJECT_BINARY_DIR}/QVAssemblyFile.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/QVAssemblyFile.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

if(TARGET qvassembly)
  file(RELATIVE_PATH library_from_program ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(qvassembly PROPERTIES INSTALL_RPATH "$ORIGIN/${library_from_program}")
  install(TARGETS qvassembly RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
  if(NOT WIN32)
    install(FILES docs/man/qvassembly.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
    install(FILES completions/qvassembly.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
            COMPONENT program RENAME qvassembly)
    install(FILES completions/_qvassembly DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT program)
    install(FILES completions/qvassembly.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
            COMPONENT program)
  endif()
endif()

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program)
# The README shows the images and names the pages, by these paths.
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program PATTERN man EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program)
