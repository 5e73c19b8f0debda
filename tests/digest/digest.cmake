# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# The stored digests become part of the test program, which so finds them wherever it runs.
set(digest_file ${PROJECT_SOURCE_DIR}/tests/data/digest.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${digest_file})
file(STRINGS ${digest_file} digest_lines REGEX "^[a-z]")
string(REPLACE ";" "," digest_list "${digest_lines}")
set_source_files_properties(${PROJECT_SOURCE_DIR}/tests/digest/digest_test.cpp
  TARGET_DIRECTORY corvane_tests
  PROPERTIES COMPILE_DEFINITIONS "CORVANE_TEST_DIGESTS=\"${digest_list}\"")
