# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# cmake -DLIBRARY=file -DOBJCOPY=program [-DREADELF=program] -DFOLDER=folder -P split_debug_info.cmake
#
# Makes two files of a library with debug information: FOLDER/stripped/NAME, which hosts get, and the information
# alone, in FOLDER/debug. With READELF that one is named after the library's build id, .build-id/ab/cdef.debug,
# as debuggers look for it; otherwise it is NAME.debug. The stripped library carries its name and checksum.
cmake_minimum_required(VERSION 3.25)
cmake_path(GET LIBRARY FILENAME name)
set(debug_file ${FOLDER}/debug/${name}.debug)
if(READELF)
  execute_process(COMMAND ${READELF} --notes ${LIBRARY} OUTPUT_VARIABLE notes COMMAND_ERROR_IS_FATAL ANY)
  if(NOT notes MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
    message(FATAL_ERROR "${LIBRARY} has no build id")
  endif()
  set(debug_file ${FOLDER}/debug/.build-id/${CMAKE_MATCH_1}/${CMAKE_MATCH_2}.debug)
endif()

# What an earlier build left has another name.
file(REMOVE_RECURSE ${FOLDER})
cmake_path(GET debug_file PARENT_PATH debug_folder)
file(MAKE_DIRECTORY ${debug_folder} ${FOLDER}/stripped)
execute_process(COMMAND ${OBJCOPY} --only-keep-debug ${LIBRARY} ${debug_file} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${OBJCOPY} --strip-unneeded --add-gnu-debuglink=${debug_file}
                        ${LIBRARY} ${FOLDER}/stripped/${name} COMMAND_ERROR_IS_FATAL ANY)
