# The LibreOffice component is built where LibreOffice's development files are.

find_program(QV_CPPUMAKER cppumaker HINTS /usr/lib/libreoffice/sdk/bin /usr/lib64/libreoffice/sdk/bin)
mark_as_advanced(QV_CPPUMAKER)
if(QV_CPPUMAKER)
  get_filename_component(QV_OFFICE_FOLDER ${QV_CPPUMAKER} REALPATH)
  get_filename_component(QV_OFFICE_FOLDER ${QV_OFFICE_FOLDER} DIRECTORY)
  get_filename_component(QV_OFFICE_FOLDER ${QV_OFFICE_FOLDER}/../.. ABSOLUTE)
  find_path(QV_OFFICE_INCLUDE_DIR cppuhelper/bootstrap.hxx
            HINTS ${QV_OFFICE_FOLDER}/sdk/include /usr/include/libreoffice)
  mark_as_advanced(QV_OFFICE_INCLUDE_DIR)
endif()

set(found OFF)
if(QV_CPPUMAKER AND QV_OFFICE_INCLUDE_DIR AND CMAKE_SYSTEM_NAME STREQUAL Linux)
  set(found ON)
endif()
option(QVASSEMBLY_WITH_CALC "Build the component for workbooks through LibreOffice" ${found})
if(QVASSEMBLY_WITH_CALC AND NOT found)
  message(FATAL_ERROR "QVASSEMBLY_WITH_CALC needs LibreOffice's development files (Debian: libreoffice-dev)")
endif()
