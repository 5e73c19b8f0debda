# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# corvane_print_docs: the reference and the pages of docs/ as HTML, in docs/html of the build folder. Not part of
# "all". Every public name is described: a warning of Doxygen's is an error, and so is what it does not warn of.
find_program(CORVANE_PRINT_DOXYGEN doxygen)
mark_as_advanced(CORVANE_PRINT_DOXYGEN)
if(NOT CORVANE_PRINT_DOXYGEN)
  if(CORVANE_PRINT_REQUIRE_ALL)
    message(FATAL_ERROR "doxygen was not found")
  endif()
  message(STATUS "doxygen was not found: there is no target corvane_print_docs")
  return()
endif()

set(CORVANE_PRINT_DOCS_FOLDER ${PROJECT_BINARY_DIR}/docs)
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${CORVANE_PRINT_DOCS_FOLDER}/Doxyfile @ONLY)
add_custom_target(corvane_print_docs
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${CORVANE_PRINT_DOCS_FOLDER}/html ${CORVANE_PRINT_DOCS_FOLDER}/xml
  COMMAND ${CORVANE_PRINT_DOXYGEN} ${CORVANE_PRINT_DOCS_FOLDER}/Doxyfile
  COMMAND ${PROJECT_SOURCE_DIR}/tools/check-reference ${CORVANE_PRINT_DOCS_FOLDER}/xml
  WORKING_DIRECTORY ${CORVANE_PRINT_DOCS_FOLDER}
  COMMENT "Writing ${CORVANE_PRINT_DOCS_FOLDER}/html"
  VERBATIM)
