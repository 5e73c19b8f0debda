# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# What `cmake --install` copies, by component; only when this is the top-level project:
#
#   library      the shared library
#   development  headers, import libraries, the package CorvanePrint for find_package, corvane-print.pc for
#                pkg-config, documentation and the examples
#   debug        the library's debug information
#   tools        plotclip
#   managed      the managed layer, see managed/CMakeLists.txt
#
# Everything finds its neighbours from where it lies itself, so that an installed tree may be moved.
include(CMakePackageConfigHelpers)
if(NOT CMAKE_INSTALL_DOCDIR)
  set(CMAKE_INSTALL_DOCDIR share/doc/corvane-print)
  if(WIN32)
    set(CMAKE_INSTALL_DOCDIR doc)
  endif()
endif()
include(GNUInstallDirs)

install(TARGETS corvane_print EXPORT CorvanePrintTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
if(WIN32)
  set(library_folder ${CMAKE_INSTALL_BINDIR})
  set(debug_folder ${CMAKE_INSTALL_BINDIR})
  set(kind PROGRAMS)
  # The import library for other compilers, where it could be made.
  install(FILES ${CMAKE_BINARY_DIR}/corvane_print.lib DESTINATION ${CMAKE_INSTALL_LIBDIR}
          COMPONENT development OPTIONAL)
else()
  set(library_folder ${CMAKE_INSTALL_LIBDIR})
  set(debug_folder lib/debug)
  set(kind FILES)
endif()
if(CORVANE_PRINT_DEBUG_INFO)
  # In the place of the file with everything, which the rule above has put there. That is removed first: of two
  # files from the same second cmake takes one for a copy of the other.
  set(installed "\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${library_folder}/$<TARGET_FILE_NAME:corvane_print>")
  install(CODE "file(REMOVE \"${installed}\")" COMPONENT library)
  install(${kind} ${CORVANE_PRINT_LIBRARY_TO_INSTALL} DESTINATION ${library_folder} COMPONENT library)
  install(DIRECTORY ${CORVANE_PRINT_DEBUG_INFO}/ DESTINATION ${debug_folder} COMPONENT debug)
endif()
if(TARGET plotclip)
  install(TARGETS plotclip RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  install(FILES docs/plotclip.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/plotclip COMPONENT tools)
  install(FILES plotclip/samples/site-plan.plt plotclip/samples/fence.txt
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/plotclip/examples COMPONENT tools)
endif()

install(DIRECTORY include/corvane DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
        FILES_MATCHING PATTERN "*.h")
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
        FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.svg")
# The reference as web pages, where it was built.
install(DIRECTORY ${CMAKE_BINARY_DIR}/docs/html DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
        OPTIONAL)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/CorvanePrint)
install(EXPORT CorvanePrintTargets NAMESPACE Corvane:: DESTINATION ${package_folder} COMPONENT development)
configure_package_config_file(cmake/CorvanePrintConfig.cmake.in CorvanePrintConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(CorvanePrintConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/CorvanePrintConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/CorvanePrintConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT development)

file(RELATIVE_PATH CORVANE_PRINT_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/corvane-print.pc.in corvane-print.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/corvane-print.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

include(cmake/CorvanePrintPackages.cmake)
