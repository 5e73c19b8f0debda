# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# corvane_print_bind_late(LIBRARY FUNCTION...): the functions of LIBRARY.dll are bound when they are first called,
# by whatever is made of the library's objects. A FUNCTION is written as 32-bit Windows decorates it, NAME@BYTES;
# NAME alone stands for the C convention.
#
# The import library comes in front of the system's own on the linker's command line. The code that calls must
# see declarations without dllimport (user32's need _USER32_ defined in front of <windows.h>), or the linker
# leaves out the stubs that the first call goes through.
function(corvane_print_bind_late library)
  # Beside the compiler, under the same prefix.
  get_filename_component(compiler ${CMAKE_CXX_COMPILER} NAME)
  string(REGEX REPLACE "(g\\+\\+|clang\\+\\+).*$" "" prefix ${compiler})
  find_program(CORVANE_PRINT_DLLTOOL NAMES ${prefix}dlltool dlltool REQUIRED)
  mark_as_advanced(CORVANE_PRINT_DLLTOOL)

  set(functions ${ARGN})
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    list(TRANSFORM functions REPLACE "@.*$" "")
  endif()
  list(JOIN functions "\n" lines)
  # The symbols within are named after the archive, so it is made where it can be called by its plain name.
  set(folder ${PROJECT_BINARY_DIR}/late)
  set(archive lib${library}_late.a)
  file(CONFIGURE OUTPUT ${folder}/${library}.def CONTENT "LIBRARY ${library}.dll\nEXPORTS\n${lines}\n")
  add_custom_command(OUTPUT ${folder}/${archive}
                     COMMAND ${CORVANE_PRINT_DLLTOOL} --kill-at --input-def ${library}.def
                             --output-delaylib ${archive}
                     WORKING_DIRECTORY ${folder} DEPENDS ${folder}/${library}.def VERBATIM)
  add_custom_target(corvane_print_make_late_${library} DEPENDS ${folder}/${archive})

  add_library(corvane_print_late_${library} STATIC IMPORTED GLOBAL)
  set_target_properties(corvane_print_late_${library} PROPERTIES IMPORTED_LOCATION ${folder}/${archive})
  add_dependencies(corvane_print_late_${library} corvane_print_make_late_${library})
  target_link_libraries(corvane_print_objects PUBLIC corvane_print_late_${library})
  # For the shared library, which takes the objects alone.
  set_property(GLOBAL APPEND PROPERTY CORVANE_PRINT_LATE_LIBRARIES corvane_print_late_${library})
endfunction()
