# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# The shared library, as hosts load it. Its SONAME number is changed by hand, here and only here, when the
# exported interface changes so that a host must be relinked.
set(CORVANE_PRINT_SONAME 0)

add_library(corvane_print SHARED $<TARGET_OBJECTS:corvane_print_objects>)
add_library(Corvane::Print ALIAS corvane_print)
target_include_directories(corvane_print INTERFACE $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
                                                   $<INSTALL_INTERFACE:include>)
get_property(late_libraries GLOBAL PROPERTY CORVANE_PRINT_LATE_LIBRARIES)
target_link_libraries(corvane_print PRIVATE ${late_libraries} ${CMAKE_DL_LIBS})
target_compile_definitions(corvane_print_objects PRIVATE CORVANE_PRINT_BUILD)
set_target_properties(corvane_print PROPERTIES
  OUTPUT_NAME corvane_print
  EXPORT_NAME Print
  VERSION ${PROJECT_VERSION}
  SOVERSION ${CORVANE_PRINT_SONAME})
if(WIN32)
  # The name hosts load is the same for every toolchain.
  set_target_properties(corvane_print PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
  # Without a marked export the linker would export everything; it shall never guess.
  target_link_options(corvane_print PRIVATE -Wl,--exclude-all-symbols)
  include(cmake/CorvanePrintForeignHosts.cmake)
else()
  # Hidden visibility does not cover instantiated templates of the standard library; the version script does.
  set(exports ${CMAKE_CURRENT_LIST_DIR}/corvane_print.map)
  target_link_options(corvane_print PRIVATE -Wl,--version-script=${exports})
  set_property(TARGET corvane_print APPEND PROPERTY LINK_DEPENDS ${exports})
endif()
