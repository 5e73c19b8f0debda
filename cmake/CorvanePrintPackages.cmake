# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# What `cpack` makes of a build, in packages/ of its folder: Debian packages, one per component, where dpkg is
# there; for Windows one .zip with everything; elsewhere one .tar.gz. The managed layer is a package of its own, from
# several builds: cmake/nupkg.cmake.
set(CORVANE_PRINT_PACKAGE_CONTACT "The Corvane Print authors <maintainers@corvane-print.invalid>" CACHE STRING
    "Who answers for the packages: name <address>")

set(CPACK_PACKAGE_NAME corvane-print)
set(CPACK_PACKAGE_VENDOR "The Corvane Print authors")
set(CPACK_PACKAGE_CONTACT ${CORVANE_PRINT_PACKAGE_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Clipping, file specifications and configuration for a plot engine")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
# Whatever the umask is.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL library development)
if(CORVANE_PRINT_DEBUG_INFO)
  list(APPEND CPACK_COMPONENTS_ALL debug)
endif()
if(TARGET plotclip)
  list(APPEND CPACK_COMPONENTS_ALL tools)
endif()

if(WIN32 AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(target win32)
elseif(WIN32)
  set(target win64)
else()
  string(TOLOWER ${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR} target)
endif()
find_program(CORVANE_PRINT_DPKG dpkg)
mark_as_advanced(CORVANE_PRINT_DPKG)

if(CORVANE_PRINT_DPKG AND NOT WIN32)
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  include(${CMAKE_CURRENT_LIST_DIR}/CorvanePrintDebian.cmake)
else()
  set(CPACK_GENERATOR TGZ)
  if(WIN32)
    set(CPACK_GENERATOR ZIP)
  endif()
  set(CPACK_PACKAGE_FILE_NAME corvane-print-${PROJECT_VERSION}-${target})
  # One archive, but without the components that are not listed above.
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
endif()
include(CPack)
