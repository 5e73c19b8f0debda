# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# Run by cpack between the installation of the managed layer and the making of its package: brings the installed
# folder to the top and adds what the container format asks for, the type of every file by its ending, and which file
# describes the package.
set(top ${CPACK_TEMPORARY_DIRECTORY})
file(GLOB entries ${top}/share/${CPACK_PACKAGE_NAME}/*)
foreach(entry IN LISTS entries)
  get_filename_component(name ${entry} NAME)
  file(RENAME ${entry} ${top}/${name})
endforeach()
file(REMOVE_RECURSE ${top}/share)

set(binary application/octet-stream)
file(WRITE "${top}/[Content_Types].xml" "<?xml version=\"1.0\" encoding=\"utf-8\"?>
<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">
  <Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\" />
  <Default Extension=\"nuspec\" ContentType=\"${binary}\" />
  <Default Extension=\"xml\" ContentType=\"${binary}\" />
  <Default Extension=\"dll\" ContentType=\"${binary}\" />
  <Default Extension=\"so\" ContentType=\"${binary}\" />
  <Override PartName=\"/LICENSE\" ContentType=\"${binary}\" />
</Types>
")
file(WRITE ${top}/_rels/.rels "<?xml version=\"1.0\" encoding=\"utf-8\"?>
<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">
  <Relationship Id=\"manifest\" Target=\"/${CPACK_PACKAGE_NAME}.nuspec\"
                Type=\"http://schemas.microsoft.com/packaging/2010/07/manifest\" />
</Relationships>
")
