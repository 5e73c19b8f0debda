# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# Windows: what hosts need that were built with the system's own compiler. The DLL exports the functions of the
# namespace under that compiler's names as well, and corvane_print.lib, beside the DLL, is the import library
# for its linker. Both are made of cmake/corvane_print-TARGET.def, which tools/make-names writes.
block()
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(target win32)
    set(machine i386)
  else()
    set(target win64)
    set(machine i386:x86-64)
  endif()
  set(names ${CMAKE_CURRENT_LIST_DIR}/corvane_print-${target}.def)
  target_sources(corvane_print PRIVATE ${names})

  find_program(CORVANE_PRINT_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
  mark_as_advanced(CORVANE_PRINT_LLVM_DLLTOOL)
  if(CORVANE_PRINT_LLVM_DLLTOOL)
    set(import_library ${PROJECT_BINARY_DIR}/corvane_print.lib)
    # The linker of this build decorates these names once too often, hence the other tool.
    add_custom_command(OUTPUT ${import_library}
                       COMMAND ${CORVANE_PRINT_LLVM_DLLTOOL} -m ${machine} -d ${names} -D corvane_print.dll
                               -l ${import_library}
                       DEPENDS ${names} VERBATIM COMMENT "Making corvane_print.lib")
    add_custom_target(corvane_print_import_library ALL DEPENDS ${import_library})
  elseif(CORVANE_PRINT_REQUIRE_ALL)
    message(FATAL_ERROR "llvm-dlltool was not found")
  else()
    message(STATUS "llvm-dlltool was not found: corvane_print.lib is not made")
  endif()
endblock()
