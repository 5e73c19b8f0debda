# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# The shared library, as hosts load it. Its SONAME number is changed by hand, here and only here, when the
# exported interface changes so that a host must be relinked.
set(CORVANE_PRINT_SONAME 0)

add_library(corvane_print SHARED $<TARGET_OBJECTS:corvane_print_objects>)
add_library(Corvane::Print ALIAS corvane_print)
target_include_directories(corvane_print INTERFACE ${CMAKE_CURRENT_SOURCE_DIR}/include)
target_link_libraries(corvane_print PRIVATE ${CMAKE_DL_LIBS})
target_compile_definitions(corvane_print_objects PRIVATE CORVANE_PRINT_BUILD)
set_target_properties(corvane_print PROPERTIES
  OUTPUT_NAME corvane_print
  VERSION ${PROJECT_VERSION}
  SOVERSION ${CORVANE_PRINT_SONAME})
if(WIN32)
  # The name hosts load is the same for every toolchain, and nothing beyond the system's own libraries is
  # needed at run time.
  set_target_properties(corvane_print PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
  target_link_options(corvane_print PRIVATE -static -static-libgcc -static-libstdc++)
endif()
