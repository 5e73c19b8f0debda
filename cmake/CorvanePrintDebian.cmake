# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# The Debian packages: libcorvane-print0, named after the SONAME, libcorvane-print-dev, libcorvane-print0-dbgsym and
# plotclip. What they need of the system is computed from the files.
set(library_package libcorvane-print${CORVANE_PRINT_SONAME})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE corvane-print)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(same_version "${library_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})

# Which package programs get that are linked with the library, and that the loader's cache must be renewed.
set(control ${CMAKE_CURRENT_BINARY_DIR}/debian)
file(CONFIGURE OUTPUT ${control}/shlibs
     CONTENT "libcorvane_print ${CORVANE_PRINT_SONAME} ${library_package} (>= ${PROJECT_VERSION})\n")
file(CONFIGURE OUTPUT ${control}/triggers CONTENT "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${control}/shlibs ${control}/triggers)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "The shared library that plot engines and their hosts load.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libcorvane-print-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ${same_version})
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers, files for CMake and pkg-config, documentation and an example for\nauthors of hosts.")

set(CPACK_DEBIAN_DEBUG_PACKAGE_NAME ${library_package}-dbgsym)
set(CPACK_DEBIAN_DEBUG_PACKAGE_SECTION debug)
set(CPACK_DEBIAN_DEBUG_PACKAGE_DEPENDS ${same_version})
set(CPACK_COMPONENT_DEBUG_DESCRIPTION "The shared library's debug information, where debuggers look for it.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME plotclip)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${library_package} (>= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
    "The program plotclip clips a drawing against a fence and writes it as a\npicture or as a plot file.")

# What every Debian package has to hold besides, see debian_files.cmake.
set(CPACK_CORVANE_PRINT_SOURCE ${PROJECT_SOURCE_DIR})
set(CPACK_CORVANE_PRINT_DOCUMENTS ${CMAKE_INSTALL_DOCDIR})
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian_files.cmake)
