# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# corvane_print_test_program(NAME): a test executable with the common main program, known to ctest and listed in
# test-programs.txt of the build folder, from which the check script takes what it has to run. Sources are
# added with target_sources. What the program links decides what it sees: corvane_print_objects for tests that
# reach internals, corvane_print for tests that stand where a host stands.
function(corvane_print_test_program name)
  add_executable(${name} ${PROJECT_SOURCE_DIR}/tests/support/test_main.cpp)
  corvane_print_compile(${name})
  # The tests' own code runs long enough to be optimised, and is compiled often enough not to be so at length.
  target_compile_options(${name} PRIVATE -O1)
  target_compile_definitions(${name} PRIVATE CORVANE_TEST_PROGRAM="${name}")
  target_link_libraries(${name} PRIVATE gtest)
  add_test(NAME ${name} COMMAND ${name})
  set_property(GLOBAL APPEND PROPERTY CORVANE_PRINT_TEST_PROGRAMS ${name})
endfunction()

# corvane_print_test_internals(NAME): the program is linked with the library's objects and sees its internals.
function(corvane_print_test_internals name)
  target_compile_definitions(${name} PRIVATE CORVANE_PRINT_STATIC)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE corvane_print_objects ${CMAKE_DL_LIBS})
endfunction()

# corvane_print_test_environment(NAME VARIABLE=VALUE): the program runs with that variable, under ctest and, by
# test-environment.txt of the build folder, under the check script. Values without blanks.
function(corvane_print_test_environment name assignment)
  set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT ${assignment})
  set_property(GLOBAL APPEND PROPERTY CORVANE_PRINT_TEST_ENVIRONMENT "${name} ${assignment}")
endfunction()

# corvane_print_list_test_programs(): writes both lists; called once, when all programs are known.
function(corvane_print_list_test_programs)
  get_property(programs GLOBAL PROPERTY CORVANE_PRINT_TEST_PROGRAMS)
  list(JOIN programs "\n" lines)
  file(WRITE ${PROJECT_BINARY_DIR}/test-programs.txt "${lines}\n")
  get_property(assignments GLOBAL PROPERTY CORVANE_PRINT_TEST_ENVIRONMENT)
  list(JOIN assignments "\n" lines)
  file(WRITE ${PROJECT_BINARY_DIR}/test-environment.txt "${lines}\n")
endfunction()
