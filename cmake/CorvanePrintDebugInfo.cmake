# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# The library is installed stripped, with its debug information in a file of its own. The library in the build
# folder keeps everything.
#
# CORVANE_PRINT_LIBRARY_TO_INSTALL is the file to install, CORVANE_PRINT_DEBUG_INFO the folder with the debug
# information; that is empty where it stays in the library, for want of objcopy or because of sanitizers.
set(CORVANE_PRINT_LIBRARY_TO_INSTALL $<TARGET_FILE:corvane_print>)
set(CORVANE_PRINT_DEBUG_INFO "")
if(NOT CMAKE_OBJCOPY OR CORVANE_PRINT_SANITIZE OR (NOT WIN32 AND NOT CMAKE_READELF))
  return()
endif()

# Debug information does not change the code. The other configurations have it anyway.
target_compile_options(corvane_print_objects PRIVATE $<$<CONFIG:Release,MinSizeRel>:-g>)

set(folder ${PROJECT_BINARY_DIR}/debug-info)
set(split_options -DLIBRARY=$<TARGET_FILE:corvane_print> -DOBJCOPY=${CMAKE_OBJCOPY} -DFOLDER=${folder})
if(NOT WIN32)
  target_link_options(corvane_print PRIVATE -Wl,--build-id=sha1)
  list(APPEND split_options -DREADELF=${CMAKE_READELF})
endif()
set(script ${CMAKE_CURRENT_LIST_DIR}/split_debug_info.cmake)
set_property(TARGET corvane_print APPEND PROPERTY LINK_DEPENDS ${script})
add_custom_command(TARGET corvane_print POST_BUILD VERBATIM
                   COMMAND ${CMAKE_COMMAND} ${split_options} -P ${script})
set(CORVANE_PRINT_LIBRARY_TO_INSTALL ${folder}/stripped/$<TARGET_FILE_NAME:corvane_print>)
set(CORVANE_PRINT_DEBUG_INFO ${folder}/debug)
