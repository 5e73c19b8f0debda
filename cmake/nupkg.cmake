# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# cpack --config cmake/nupkg.cmake, in the root of the repository: the managed layer as a NuGet package in
# build/packages, with the native libraries of the builds linux-x64, win32 and win64, which must be finished.
#
# CORVANE_PRINT_BUILDS in the environment may name the folders of other builds, separated by semicolons.
get_filename_component(repository ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
file(STRINGS ${repository}/include/corvane/print/version.h line REGEX "define CORVANE_PRINT_VERSION \"")
string(REGEX REPLACE ".*\"(.*)\".*" "\\1" version "${line}")

set(builds $ENV{CORVANE_PRINT_BUILDS})
if(NOT builds)
  set(builds ${repository}/build/linux-x64 ${repository}/build/win32 ${repository}/build/win64)
endif()
set(CPACK_INSTALL_CMAKE_PROJECTS "")
foreach(build IN LISTS builds)
  if(NOT EXISTS ${build}/managed/Corvane.PrintTools.dll)
    message(FATAL_ERROR "The managed layer was not built in ${build}")
  endif()
  list(APPEND CPACK_INSTALL_CMAKE_PROJECTS ${build} CorvanePrint managed /)
endforeach()

# The builds are finished: what made them is not run again.
set(CPACK_CMAKE_GENERATOR Ninja)
set(CPACK_GENERATOR ZIP)
set(CPACK_ARCHIVE_FILE_EXTENSION .nupkg)
set(CPACK_PACKAGE_NAME Corvane.PrintTools)
set(CPACK_PACKAGE_VENDOR "The Corvane Print authors")
set(CPACK_PACKAGE_DESCRIPTION "The managed layer of Corvane Print")
set(CPACK_PACKAGE_VERSION ${version})
set(CPACK_PACKAGE_FILE_NAME Corvane.PrintTools.${version})
set(CPACK_PACKAGE_DIRECTORY ${repository}/build/packages)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/nupkg_files.cmake)
