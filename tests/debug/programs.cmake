# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# corvane_print_debug_standin(NAME VERSION DEFINITION...): a debug library in standins/debug_NAME of the build
# folder, with the version text VERSION or, when that is empty, without one.
function(corvane_print_debug_standin name version)
  set(target corvane_print_debug_${name})
  set(folder ${PROJECT_BINARY_DIR}/standins/debug_${name})
  add_library(${target} MODULE standins/kvldebug.c)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME kvldebug
    LIBRARY_OUTPUT_DIRECTORY ${folder} ARCHIVE_OUTPUT_DIRECTORY ${folder})
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:C>:-Wall -Wextra>)
  target_compile_definitions(${target} PRIVATE ${ARGN})
  if(WIN32)
    set_target_properties(${target} PROPERTIES PREFIX "")
    if(NOT version STREQUAL "")
      configure_file(standins/version.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc @ONLY)
      target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
    endif()
  elseif(NOT version STREQUAL "")
    target_compile_definitions(${target} PRIVATE STANDIN_VERSION="${version}")
  endif()
endfunction()

# corvane_print_debug_program(NAME STANDIN SOURCE...): a test program that finds that debug library and no other.
function(corvane_print_debug_program name standin)
  corvane_print_test_program(${name})
  target_sources(${name} PRIVATE ${ARGN})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${name} PRIVATE DEBUG_STANDIN="debug_${standin}")
  add_dependencies(${name} corvane_print_debug_${standin})
  if(NOT WIN32)
    # The older kind of search path holds for whatever the program's libraries load as well.
    set_target_properties(${name} PROPERTIES BUILD_RPATH ${PROJECT_BINARY_DIR}/standins/debug_${standin})
    target_link_options(${name} PRIVATE -Wl,--disable-new-dtags)
  endif()
endfunction()

corvane_print_debug_standin(complete 6)
corvane_print_debug_standin(other_version 7)
corvane_print_debug_standin(longer_version 60)
corvane_print_debug_standin(no_version "")
corvane_print_debug_standin(no_destination 6 STANDIN_NO_DESTINATION)
corvane_print_debug_standin(no_boxes 6 STANDIN_NO_BOXES)
corvane_print_debug_standin(no_print 6 STANDIN_NO_PRINT)

# Hosts of the shared library.
set(seam ${PROJECT_SOURCE_DIR}/tests/platform/${system}/system_seam.cpp)
corvane_print_debug_program(corvane_debug_calls_tests complete calls_test.cpp ${seam})
corvane_print_debug_program(corvane_debug_threads_tests complete threads_test.cpp)
corvane_print_debug_program(corvane_debug_other_version_tests other_version unusable_test.cpp)
corvane_print_debug_program(corvane_debug_longer_version_tests longer_version unusable_test.cpp)
corvane_print_debug_program(corvane_debug_no_version_tests no_version unusable_test.cpp)
corvane_print_debug_program(corvane_debug_no_destination_tests no_destination no_destination_test.cpp)
corvane_print_debug_program(corvane_debug_no_boxes_tests no_boxes no_boxes_test.cpp)
corvane_print_debug_program(corvane_debug_no_print_tests no_print no_print_test.cpp)
find_package(Threads REQUIRED)
target_link_libraries(corvane_debug_threads_tests PRIVATE Threads::Threads)
foreach(state calls threads other_version longer_version no_version no_destination no_boxes no_print)
  target_link_libraries(corvane_debug_${state}_tests PRIVATE corvane_print)
endforeach()

# Programs that reach into the library.
corvane_print_debug_program(corvane_debug_memory_tests complete memory_test.cpp ${seam})
corvane_print_test_internals(corvane_debug_memory_tests)

# corvane_print_debug_late_program(STATE DLL CODE): the user library's functions are looked for in DLL, which is
# not there or lacks them; CODE is the exception that tells so. The linker takes the first library that has them.
function(corvane_print_debug_late_program state dll code)
  set(functions "LoadStringA@16\nwsprintfA\n")
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    string(REPLACE "@16" "" functions ${functions})
  endif()
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/late_${state})
  file(CONFIGURE OUTPUT ${folder}/${state}.def CONTENT "LIBRARY ${dll}\nEXPORTS\n${functions}")
  add_custom_command(OUTPUT ${folder}/lib${state}.a
                     COMMAND ${CORVANE_PRINT_DLLTOOL} --kill-at --input-def ${state}.def
                             --output-delaylib lib${state}.a
                     WORKING_DIRECTORY ${folder} DEPENDS ${folder}/${state}.def VERBATIM)
  set(program corvane_debug_${state}_tests)
  corvane_print_debug_program(${program} complete late_test.cpp ${folder}/lib${state}.a)
  target_compile_definitions(${program} PRIVATE EXPECTED_CODE=${code})
  target_link_libraries(${program} PRIVATE ${folder}/lib${state}.a)
  corvane_print_test_internals(${program})
endfunction()

if(WIN32)
  corvane_print_debug_late_program(late_missing corvane_no_such_user_library.dll 0xC06D007E)
  corvane_print_debug_late_program(late_function kernel32.dll 0xC06D007F)
endif()

# The first call under the thread sanitizer, which excludes the others. It sees what is compiled for it, so the
# program has sources of its own; the framework and the stand-in do nothing that it must know about.
if(NOT WIN32 AND NOT CORVANE_PRINT_SANITIZE)
  set(root ${PROJECT_SOURCE_DIR})
  corvane_print_debug_program(corvane_debug_tsan_tests complete threads_test.cpp
    ${root}/config/codepage.cpp ${root}/debug/load.cpp ${root}/debug/message.cpp ${root}/debug/message_wide.cpp
    ${root}/debug/router.cpp ${root}/debug/tools.cpp ${root}/platform/capi_memory.cpp ${root}/platform/posix/code_page.cpp
    ${root}/platform/posix/guarded_call.cpp ${root}/platform/posix/named_lock.cpp
    ${root}/platform/posix/shared_library.cpp ${root}/platform/posix/wide_conversion.cpp
    ${root}/platform/posix/wide_format.cpp)
  target_compile_definitions(corvane_debug_tsan_tests PRIVATE CORVANE_PRINT_STATIC)
  target_include_directories(corvane_debug_tsan_tests PRIVATE ${root}/include)
  target_compile_options(corvane_debug_tsan_tests PRIVATE -fsanitize=thread)
  target_link_options(corvane_debug_tsan_tests PRIVATE -fsanitize=thread)
  target_link_libraries(corvane_debug_tsan_tests PRIVATE Threads::Threads ${CMAKE_DL_LIBS})
endif()
