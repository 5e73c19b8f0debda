# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# What `cmake --install` copies: the library, the public headers, the package CorvanePrint for find_package and
# corvane-print.pc for pkg-config. Only when this is the top-level project.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

install(TARGETS corvane_print EXPORT CorvanePrintTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/corvane DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/CorvanePrint)
install(EXPORT CorvanePrintTargets NAMESPACE Corvane:: DESTINATION ${package_folder})
configure_package_config_file(cmake/CorvanePrintConfig.cmake.in CorvanePrintConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(CorvanePrintConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/CorvanePrintConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/CorvanePrintConfigVersion.cmake
        DESTINATION ${package_folder})

# The prefix is found from where the file lies, so that an installed tree may be moved.
file(RELATIVE_PATH CORVANE_PRINT_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/corvane-print.pc.in corvane-print.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/corvane-print.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
