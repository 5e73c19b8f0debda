# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# A process reads the switches of the search once, so each setting needs a program of its own; corvane_tests has
# the one in which neither variable is set.
function(corvane_print_search_program name)
  corvane_print_test_program(${name})
  corvane_print_test_internals(${name})
  if(WIN32)
    set(seam ${PROJECT_SOURCE_DIR}/tests/platform/win32/system_seam.cpp)
  else()
    set(seam ${PROJECT_SOURCE_DIR}/tests/platform/posix/system_seam.cpp)
  endif()
  target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/filespec/search_switches_test.cpp ${seam})
  target_compile_definitions(${name} PRIVATE ${ARGN})
endfunction()

corvane_print_search_program(corvane_search_current_first_tests
  CORVANE_TEST_CURRENT_FIRST="TRUE" CORVANE_TEST_NOT_AS_IS="yes")
corvane_print_search_program(corvane_search_not_as_is_tests
  CORVANE_TEST_CURRENT_FIRST="1" CORVANE_TEST_NOT_AS_IS="true")
corvane_print_search_program(corvane_search_both_switches_tests
  CORVANE_TEST_CURRENT_FIRST="TrUe" CORVANE_TEST_NOT_AS_IS="TRUE")
