include(FindPackageHandleStandardArgs)

# qv_header_only(NAME TARGET FOLDER): a header-only library of this machine as an imported target. Its folder is linked
# into an include folder of the build's own, because the folder that it stands in also holds headers of this machine's
# platform.
function(qv_header_only name target folder)
  find_path(${name}_PARENT ${folder} PATHS /usr/local/include /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(${name}_PARENT)
  find_package_handle_standard_args(${name} REQUIRED_VARS ${name}_PARENT)
  set(${name}_FOUND ${${name}_FOUND} PARENT_SCOPE)
  if(${name}_FOUND AND NOT TARGET ${target})
    set(private ${PROJECT_BINARY_DIR}/header-only/${name})
    file(MAKE_DIRECTORY ${private})
    file(CREATE_LINK ${${name}_PARENT}/${folder} ${private}/${folder} SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} SYSTEM INTERFACE ${private})
  endif()
endfunction()
