# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# corvane_print_compile(TARGET): the language level, the warnings and the arithmetic of all our code.
#
# The same source gives the same bits on every target: no contraction to fused multiply-add anywhere, and
# SSE2 instead of x87 on 32-bit x86.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(CORVANE_PRINT_SANITIZE)
  add_compile_options(-fsanitize=${CORVANE_PRINT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${CORVANE_PRINT_SANITIZE})
endif()

# Everything that a fuzzer drives is compiled so that it sees which branches were taken.
if(CORVANE_PRINT_BUILD_FUZZERS)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "CORVANE_PRINT_BUILD_FUZZERS needs clang: its libFuzzer is linked in")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Windows programs and the DLL need nothing beyond the system's own libraries at run time.
if(MINGW)
  add_link_options(-static -static-libgcc -static-libstdc++)
endif()

# Also for the test framework and whatever else is built here: a mix of the two arithmetics on 32-bit x86
# would make results depend on which of them computed a value.
add_compile_options(-ffp-contract=off)
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "86")
  add_compile_options(-msse2 -mfpmath=sse)
endif()

function(corvane_print_compile target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion)
  # g++ 12 sees overlapping copies in "text" + std::string, where there are none.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(CORVANE_PRINT_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
