# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# What a build may switch on and off. A project that includes this one gets the library alone.
option(CORVANE_PRINT_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(CORVANE_PRINT_BUILD_TOOLS "Build plotclip" ${PROJECT_IS_TOP_LEVEL})
option(CORVANE_PRINT_BUILD_MANAGED "Build the managed layer, where Mono is found" ${PROJECT_IS_TOP_LEVEL})
option(CORVANE_PRINT_BUILD_FUZZERS "Build the libFuzzer targets (clang only)" OFF)
option(CORVANE_PRINT_PLAIN "Use the plain forms of what is there in a faster one too; results are the same" OFF)
option(CORVANE_PRINT_BUILD_BENCH "Build the benchmarks, with the libraries of the same kind that are found" OFF)
option(CORVANE_PRINT_REQUIRE_ALL "Missing tools of the tests are an error instead of leaving tests out" OFF)
option(CORVANE_PRINT_WARNINGS_AS_ERRORS "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})
set(CORVANE_PRINT_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=, for everything that is built")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
