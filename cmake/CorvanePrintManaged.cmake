# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# C# by mcs: corvane_print_assembly(NAME OUT file KIND library|exe [SOURCES ...] [REFERENCES targets...]
# [RESOURCES file,name...] [DEPENDS ...] [OPTIONS ...] [DOC file]). NAME is the target; the assemblies that it
# REFERENCES are other such targets. Warnings are errors.
function(corvane_print_assembly name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "OUT;KIND;DOC" "SOURCES;REFERENCES;RESOURCES;DEPENDS;OPTIONS")
  set(command ${CORVANE_PRINT_MCS} -nologo -langversion:7 -warnaserror+ -debug- -target:${arg_KIND} -out:${arg_OUT})
  set(depends ${arg_SOURCES} ${arg_DEPENDS})
  foreach(reference IN LISTS arg_REFERENCES)
    get_target_property(assembly ${reference} CORVANE_PRINT_ASSEMBLY)
    list(APPEND command -reference:${assembly})
    list(APPEND depends ${assembly} ${reference})
  endforeach()
  foreach(resource IN LISTS arg_RESOURCES)
    list(APPEND command -resource:${resource})
    string(REGEX REPLACE ",.*" "" file ${resource})
    list(APPEND depends ${file})
  endforeach()
  if(arg_DOC)
    list(APPEND command -doc:${arg_DOC})
  endif()
  get_filename_component(folder ${arg_OUT} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${arg_OUT} BYPRODUCTS ${arg_DOC}
                     COMMAND ${command} ${arg_OPTIONS} ${arg_SOURCES}
                     WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} DEPENDS ${depends} VERBATIM
                     COMMENT "Compiling ${name}")
  add_custom_target(${name} ALL DEPENDS ${arg_OUT})
  set_target_properties(${name} PROPERTIES CORVANE_PRINT_ASSEMBLY ${arg_OUT})
endfunction()
