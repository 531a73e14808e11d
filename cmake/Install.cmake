# SPDX-License-Identifier: MPL-2.0
# Where `cmake --install` puts things. The program and the extension are installed where they are built.

include(GNUInstallDirs)
set(HUEBRUSH_EXTENSIONDIR "${CMAKE_INSTALL_LIBDIR}/huebrush/extension" CACHE STRING
  "The folder that gets the unpacked extension; in a package it may be that of LibreOffice's own")
cmake_path(ABSOLUTE_PATH HUEBRUSH_EXTENSIONDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
  OUTPUT_VARIABLE HUEBRUSH_FULL_EXTENSIONDIR)

configure_file(man/huebrush.1.in man/huebrush.1 @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/huebrush.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# The manual in both languages and what it refers to, in the same places beside each other.
install(FILES LICENSE CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/manual.md docs/manual.cs.md docs/libreoffice-fills.md docs/huebrush.schema.json
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(DIRECTORY docs/images DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
