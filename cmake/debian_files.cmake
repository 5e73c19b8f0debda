# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# Run by cpack between the installation of the components and the making of the packages: gives every package its
# folder share/doc/PACKAGE with licence and changes, and moves the documents to that of the development package.

# The changes of the packaging: none but the release itself. SOURCE_DATE_EPOCH sets the date.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
string(CONCAT packaging_changes
  "corvane-print (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium\n\n"
  "  * Release ${CPACK_PACKAGE_VERSION}.\n\n"
  " -- ${CPACK_PACKAGE_CONTACT}  ${now}\n")

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(documents ${root}/share/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  if(EXISTS ${root}/${CPACK_CORVANE_PRINT_DOCUMENTS})
    file(RENAME ${root}/${CPACK_CORVANE_PRINT_DOCUMENTS} ${documents})
    # Here the two have other names.
    file(REMOVE ${documents}/LICENSE ${documents}/CHANGELOG.md)
  endif()
  file(MAKE_DIRECTORY ${documents})
  file(COPY_FILE ${CPACK_CORVANE_PRINT_SOURCE}/LICENSE ${documents}/copyright)
  file(COPY_FILE ${CPACK_CORVANE_PRINT_SOURCE}/CHANGELOG.md ${documents}/changelog)
  file(WRITE ${documents}/changelog.Debian "${packaging_changes}")
  # -n: without the time, so that the same release gives the same file.
  execute_process(COMMAND gzip -9n ${documents}/changelog ${documents}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
endforeach()
