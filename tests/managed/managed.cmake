# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# Corvane.PrintTools.Tests.dll (NUnit), and the host that it runs; into the layer's own folder, where both are
# found. tools/run-managed-tests runs them, ctest by its means.
find_file(CORVANE_PRINT_NUNIT nunit.framework.dll
          PATHS /usr/lib/cli/nunit.framework-2.6.3 /usr/lib/cli/nunit.framework-2.6 /usr/lib/mono/4.5
          DOC "NUnit 2.6's framework")
find_program(CORVANE_PRINT_NUNIT_CONSOLE NAMES nunit-console nunit-console4)
mark_as_advanced(CORVANE_PRINT_NUNIT CORVANE_PRINT_NUNIT_CONSOLE)
if(NOT CORVANE_PRINT_NUNIT OR NOT CORVANE_PRINT_NUNIT_CONSOLE)
  if(CORVANE_PRINT_REQUIRE_ALL)
    message(FATAL_ERROR "NUnit 2.6 was not found")
  endif()
  message(STATUS "NUnit was not found: the tests of the managed layer are not built")
  return()
endif()

set(out ${PROJECT_BINARY_DIR}/managed)
# As a host has them: other assemblies under the names of the stand-ins.
function(host_assembly target assembly)
  corvane_print_assembly(${target} KIND library OUT ${out}/host/${assembly}.dll
    SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/host/${assembly}.cs REFERENCES ${ARGN})
endfunction()
host_assembly(corvane_print_host_exceptions Corvane.Exceptions)
host_assembly(corvane_print_host_logging Corvane.logging-2.0)
host_assembly(corvane_print_host_fabric Corvane.Fabric.2.0 corvane_print_host_logging)

set(sources DebugToolsTests.cs EntryPointTests.cs ExpandCallbackTests.cs FUToolsTests.cs FileLockTests.cs
            FileSpecTests.cs KvlTests.cs LookupLoadTests.cs Native.cs NativeFileSpecTests.cs Places.cs
            PrintLoggerTests.cs PrintToolsTests.cs PublicShapeTests.cs SampleTests.cs UserMessageTests.cs)
list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
corvane_print_assembly(corvane_print_managed_tests KIND library OUT ${out}/Corvane.PrintTools.Tests.dll
  SOURCES ${sources}
  REFERENCES corvane_print_managed corvane_print_standin_logging
  RESOURCES ${CMAKE_CURRENT_SOURCE_DIR}/PublicShape.txt,PublicShape.txt
  OPTIONS -unsafe -d:TRACE -reference:${CORVANE_PRINT_NUNIT} -reference:System.Core)
corvane_print_assembly(corvane_print_managed_test_host KIND exe OUT ${out}/Corvane.PrintTools.TestHost.exe
  SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/TestHost.cs
  REFERENCES corvane_print_managed corvane_print_managed_tests)
add_dependencies(corvane_print_managed_tests corvane_print corvane_print_debug_complete corvane_print_host_exceptions
                 corvane_print_host_fabric corvane_print_managed_de corvane_print_managed_sample)

# The console runner's own name is needed by the script.
file(CONFIGURE OUTPUT ${out}/nunit-console.txt CONTENT "${CORVANE_PRINT_NUNIT_CONSOLE}\n")
add_test(NAME corvane_managed_tests
         COMMAND ${PROJECT_SOURCE_DIR}/tools/run-managed-tests ${PROJECT_BINARY_DIR})
