# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# The programs that test late binding, on Windows only. Each is a host of the shared library and runs with the
# network provider library in a state of its own:
#
# corvane_late_missing_tests   it cannot be loaded
# corvane_late_function_tests  it lacks the functions
# corvane_late_mapping_tests   it is a stand-in with mapped drives
function(corvane_print_standin folder file source)
  set(target corvane_print_standin_${folder})
  add_library(${target} SHARED standins/${source})
  set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${file}
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/standins/${folder}
    ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/standins/${folder})
  target_compile_options(${target} PRIVATE -Wall -Wextra)
  # Exported names are looked up without the 32-bit convention's decoration.
  target_link_options(${target} PRIVATE -Wl,--kill-at)
endfunction()

corvane_print_standin(provider mpr provider.c)
corvane_print_standin(substitute substitute provider.c)
corvane_print_standin(old_provider mpr old_provider.c)
corvane_print_standin(recorder vantrel recorder.c)
corvane_print_standin(plain_recorder vantrel recorder.c)
corvane_print_standin(silent_support vantrel silent_support.c)
target_compile_definitions(corvane_print_standin_recorder PRIVATE RECORDER_CONVENTION=WINAPI)
target_compile_definitions(corvane_print_standin_plain_recorder PRIVATE RECORDER_CONVENTION=__cdecl)

foreach(state missing function mapping)
  set(program corvane_late_${state}_tests)
  corvane_print_test_program(${program})
  target_sources(${program} PRIVATE late_${state}_test.cpp
                 ${PROJECT_SOURCE_DIR}/platform/win32/guarded_call.cpp)
  target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${program} PRIVATE corvane_print)
  add_dependencies(${program} corvane_print_standin_provider corvane_print_standin_substitute
                   corvane_print_standin_old_provider corvane_print_standin_recorder
                   corvane_print_standin_plain_recorder corvane_print_standin_silent_support)
endforeach()

# Under Wine: empty keeps a library from being loaded, n takes the file instead of the emulator's own.
corvane_print_test_environment(corvane_late_missing_tests "WINEDLLOVERRIDES=mpr=")
corvane_print_test_environment(corvane_late_function_tests "WINEDLLOVERRIDES=mpr=n")
corvane_print_test_environment(corvane_late_mapping_tests "WINEDLLOVERRIDES=mpr=n")
